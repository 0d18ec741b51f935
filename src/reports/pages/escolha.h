#pragma once

#include <string>

#include "reports/pages/filtros.h"
#include "reports/pages/prazo.h"

namespace reports {

/// What the user of a page has chosen.
struct Escolha {
  Prazo prazo = Prazo::kAno;
  Periodo dias;  // of `Prazo::kDias`
  Por por = Por::kViatura;
  Coluna coluna = Coluna::kMes;
  Escolhidos filtros;
  std::vector<std::string> tipos;  // as `Pedido::tipos`
  bool vistos = false;             // findings that were looked at, too

  Pedido PedidoEm(Date hoje) const;
  /// The choice that leads to a request.
  static Escolha De(const Pedido& pedido);

  /// Period, grouping and columns as a text to be kept; what it can't tell is left as it is.
  std::string Guardada() const;
  void Repoe(const std::string& guardada);
};

struct PalavraDeColuna {
  Coluna coluna;
  const char* chave;   // "mes"
  const char* titulo;  // "Mês"
};
const std::vector<PalavraDeColuna>& PalavrasDeColuna();

}  // namespace reports
