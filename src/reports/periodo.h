#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/date.h"

namespace reports {

using platform::Date;

/// Days are counted from the zero date.
using Dia = std::int64_t;

inline constexpr std::int64_t kSegundosDoDia = 86400;

inline bool SemData(Date data) { return data.seconds() >= 0 && data.seconds() < kSegundosDoDia; }
/// "2026-01-31".
std::string TextoDoDia(Dia dia);

/// Whole days, both in.
struct Periodo {
  Dia de = 0;
  Dia ate = 0;

  static Periodo Ano(int ano);
  static Periodo Trimestre(int ano, int trimestre);
  static Periodo Mes(int ano, int mes);
  /// The twelve whole months before that of `hoje`.
  static Periodo Ultimos12Meses(Date hoje);

  bool Tem(Date data) const {
    return !SemData(data) && data.seconds() >= de * kSegundosDoDia &&
           data.seconds() < (ate + 1) * kSegundosDoDia;
  }
  /// The number of months when it begins and ends with one.
  std::optional<int> MesesInteiros() const;
  /// As many whole months before, else as many days.
  Periodo Anterior() const;
  /// How many months it lasts; without whole ones, its days in months of 30.4375.
  double Meses() const;
};

enum class Coluna { kMes, kTrimestre, kAno };

/// A column of a report: "2026-01", "2026-T1" or "2026", cut to the period.
struct Intervalo {
  std::string nome;
  Periodo dias;
};

/// The columns of a period, at most 1,200; error 6 beyond.
std::vector<Intervalo> ColunasDe(const Periodo& periodo, Coluna coluna);
/// The column that holds a day of the period.
std::size_t ColunaDoDia(const std::vector<Intervalo>& colunas, Dia dia);

}  // namespace reports
