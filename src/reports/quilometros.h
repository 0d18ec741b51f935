#pragma once

#include <optional>
#include <string>
#include <vector>

#include "reports/pedido.h"

namespace reports {

/// The odometer of a vehicle, day by day: what was read, and what lies between.
class Quilometragem {
 public:
  /// Reads initial kilometres, fills and revisions of a vehicle.
  Quilometragem(const Frota& frota, std::size_t viatura);

  bool vazia() const { return leituras_.empty(); }
  Dia primeira() const { return leituras_.front().dia; }
  Dia ultima() const { return leituras_.back().dia; }
  /// Kilometres from the first reading to the end of a day, spread evenly between readings. Absent when they
  /// do not fit.
  Valor Ate(Dia dia) const;
  Valor Em(const Periodo& periodo) const;
  /// Days of the period that have kilometres of their own: after the first reading, up to the last.
  std::int64_t DiasEm(const Periodo& periodo) const;
  /// Days of the period on which a lower reading was left out.
  std::int64_t RecuosEm(const Periodo& periodo) const;

 private:
  struct Leitura {
    Dia dia;
    Currency km;
    Soma ate;  // kilometres from the first reading to this one
  };

  void Segue(const std::vector<Leitura>& porDia);

  std::vector<Leitura> leituras_;
  std::vector<Dia> recuos_;
};

struct LinhaDeQuilometros {
  std::string chave;
  std::vector<Valor> celulas;
  Valor total;
  std::int64_t dias = 0;
  std::optional<Dia> ultimaLeitura;
  std::int64_t recuos = 0;
};

struct Quilometros {
  std::vector<Intervalo> colunas;
  std::vector<LinhaDeQuilometros> linhas;
  LinhaDeQuilometros total;
};

/// How far the fleet went.
Quilometros QuilometrosDaFrota(const Frota& frota, const Pedido& pedido);

/// A leasing contract, seen ahead to its end.
struct Projeccao {
  std::string matricula;
  Currency limite;
  Valor feitos;            // kilometres since the contract's start
  Valor previstos;         // at its end, at the last twelve months' kilometres a day
  Valor excesso;           // beyond the limit; 0 within it
  Valor custo;             // of the excess
  std::optional<Dia> dia;  // on which the limit is reached, up to the end
  bool acima10 = false;    // beyond the limit by more than a tenth of it
};
std::vector<Projeccao> ProjeccoesDeLeasing(const Frota& frota, const Pedido& pedido);

}  // namespace reports
