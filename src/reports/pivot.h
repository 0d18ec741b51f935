#pragma once

#include <string>
#include <utility>
#include <vector>

#include "reports/pedido.h"

namespace reports {

/// An amount that belongs to many days: `ate` of a day is the part up to it, so that any split adds up.
struct Repartido {
  Currency valor;
  Dia de = 0;
  Dia ate = 0;

  Currency Ate(Dia dia) const { return Parte(valor, dia - de + 1, ate - de + 1); }
  Currency Em(const Periodo& periodo) const { return Ate(periodo.ate) - Ate(periodo.de - 1); }
};

struct LinhaDoPivot {
  std::string chave;
  std::string nome;
  std::vector<Soma> celulas;
  Soma total;
  Soma anterior;
  Soma semData;
};

/// Amounts by row and column, with what the period before had and what has no date.
class Pivot {
 public:
  explicit Pivot(const Pedido& pedido);

  const std::vector<Intervalo>& colunas() const { return colunas_; }
  /// From the period before to the end of this one.
  Periodo Alcance() const { return {anterior_.de, periodo_.ate}; }
  std::size_t Linha(const std::string& chave);
  void Junta(std::size_t linha, Date data, Currency valor);
  void Junta(std::size_t linha, const Repartido& valor);
  /// The rows in their order, named, and the sum of all.
  std::vector<LinhaDoPivot> Linhas(const Frota& frota, Por por) const;
  LinhaDoPivot Total() const;

 private:
  Periodo periodo_, anterior_;
  std::vector<Intervalo> colunas_;
  Chaves chaves_;
  std::vector<LinhaDoPivot> linhas_;
};

/// This period less the one before, and the same in per cent of that one; absent where there is nothing to
/// compare with.
Valor Diferenca(const LinhaDoPivot& linha);
Valor Percentagem(const LinhaDoPivot& linha);

}  // namespace reports
