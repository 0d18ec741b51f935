#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "reports/pages/grafico.h"
#include "reports/relatorio.h"

namespace reports {

/// A report as a page shows it: its tables, and what they were made of for charts and closer looks. Nothing
/// of it reads the database any more, so it may go from one thread to another.
struct Resultado {
  TipoDeRelatorio tipo = TipoDeRelatorio::kConsumos;
  Pedido pedido;
  std::shared_ptr<const Frota> frota;
  Relatorio relatorio;
};

/// Reads and computes. Throws `Cancelado` when the request says so, and the errors of `Fazer`.
Resultado Calcular(const zorCrmParvel::DataAccessRef& bd, TipoDeRelatorio tipo, const Pedido& pedido,
                   bool vistos = false);

/// The tables that a page shows, the one that was asked for first; those of one row and the totals stand
/// below them in words.
std::vector<std::size_t> TabelasMostradas(const Resultado& resultado);
/// A line for each total: "GASOLEO: 1.200 L, 1.980,00 €, 6,70 aos 100 km".
std::vector<std::string> Totais(const Resultado& resultado);

/// The report that tells what a row is made of, with its request; none for rows that are single events, or
/// of nothing that can be looked into.
struct MaisPerto {
  TipoDeRelatorio tipo;
  Pedido pedido;
  std::string titulo;  // "Movimentos de 10-GJ-10"
};
std::optional<MaisPerto> DentroDa(const Resultado& resultado, std::size_t tabela, const LinhaDaTabela& linha);

/// The chart that goes with a row of a table, or with the whole report.
Grafico GraficoDa(const Resultado& resultado, std::size_t tabela, const LinhaDaTabela* linha);

}  // namespace reports
