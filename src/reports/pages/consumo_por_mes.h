#pragma once

#include <string>
#include <vector>

#include "reports/pages/grafico.h"
#include "reports/pedido.h"

namespace reports {

/// Consumption along the months of a period; of long ones along quarters or years.
class ConsumoPorMes {
 public:
  /// The fleet outlives it.
  ConsumoPorMes(const Frota& frota, const Periodo& periodo);

  const std::vector<Intervalo>& colunas() const { return colunas_; }
  /// Code of the type with the most fills among the vehicles; empty without any.
  std::string TipoMaisUsado(const std::vector<std::size_t>& viaturas) const;
  /// A chart of a type without a line yet.
  Grafico Vazio(const std::string& tipo) const;
  /// Counted quantities over distances of vehicles together, never a mean of means.
  Serie De(const std::string& nome, const std::vector<std::size_t>& viaturas, const std::string& tipo) const;

 private:
  const Frota& frota_;
  std::vector<Intervalo> colunas_;
};

}  // namespace reports
