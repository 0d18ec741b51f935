#pragma once

#include <array>
#include <string>
#include <tuple>
#include <vector>

#include "reports/pedido.h"

namespace reports {

enum class Regra : std::uint8_t {
  kConsumo,
  kDeposito,
  kMesmoDia,
  kKmRecua,
  kKmPorDia,
  kPreco,
  kInactiva,
  kFimDeSemana,
  kNoite,
  kCombustivel,
  kRepetido,
  kCarta,
  kSemViatura,
  kSemMotorista
};
inline constexpr std::size_t kRegras = 14;

struct TextosDaRegra {
  const char* chave;       // "consumo"
  const char* explicacao;  // what it looks for
  const char* limiar;      // what its threshold counts; empty without one
  int limiarInicial;
  bool activaInicial;
};
const TextosDaRegra& TextosDe(Regra regra);

/// How a rule is set.
struct Ajuste {
  bool activa = true;
  Currency limiar;
};
using Ajustes = std::array<Ajuste, kRegras>;
/// As they come, before an office changes any.
Ajustes AjustesIniciais();

struct Achado {
  Regra regra;
  const Evento* evento;
  std::string texto;  // in words, with its figure
};

/// What is odd about the events of the period, by vehicle and in order.
std::vector<Achado> Excepcoes(const Frota& frota, const Pedido& pedido, const Ajustes& ajustes);

}  // namespace reports
