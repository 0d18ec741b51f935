#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/data_access.h"
#include "reports/carregar.h"
#include "reports/pedido.h"
#include "reports/tables/tabela.h"

namespace reports {

enum class TipoDeRelatorio { kConsumos, kCustos, kTotal, kQuilometros, kExcepcoes, kMovimentos, kEmissoes };

struct TextosDoRelatorio {
  TipoDeRelatorio tipo;
  const char* chave;     // "consumos"
  const char* titulo;    // "Mapa de consumos"
  const char* texto;     // what it answers
  bool colunas;          // of time
  bool motoristas;       // knows drivers
  std::vector<Por> por;  // what it can be put together by
};
const std::vector<TextosDoRelatorio>& Relatorios();
const TextosDoRelatorio& TextosDe(TipoDeRelatorio tipo);

struct PalavraDeGrupo {
  Por por;
  const char* chave;   // "departamento"
  const char* titulo;  // "Departamento"
};
const std::vector<PalavraDeGrupo>& Grupos();
const PalavraDeGrupo& TextosDe(Por por);

/// Why a request can't be met, for the user; empty when it can.
std::string Objeccao(TipoDeRelatorio tipo, const Pedido& pedido);

/// What the report has to be read for.
Necessidade NecessidadeDe(TipoDeRelatorio tipo, const Pedido& pedido);

/// Reads and computes a report. With `vistos`, findings that were looked at are shown as well.
Relatorio Fazer(const zorCrmParvel::DataAccessRef& bd, TipoDeRelatorio tipo, const Pedido& pedido,
                bool vistos = false);
/// The same with what has been read of the fleet, which may be more than the report needs.
Relatorio Fazer(const zorCrmParvel::DataAccessRef& bd, TipoDeRelatorio tipo, const Pedido& pedido,
                const Necessidade& necessidade, bool vistos, std::shared_ptr<const Frota>& frota);

// Each report as tables, from a fleet that has been read for it.
Relatorio TabelasDeConsumos(const Frota& frota, const Pedido& pedido);
Relatorio TabelasDeCustos(const Frota& frota, const Pedido& pedido);
Relatorio TabelasDoTotal(const Frota& frota, const Pedido& pedido);
Relatorio TabelasDeQuilometros(const Frota& frota, const Pedido& pedido);
Relatorio TabelasDeEmissoes(const Frota& frota, const Pedido& pedido);
/// Its rows are made when they are looked at, and hold the fleet until then.
Relatorio TabelasDeMovimentos(const std::shared_ptr<const Frota>& frota, const Pedido& pedido);
Relatorio TabelasDeExcepcoes(const Frota& frota, const Pedido& pedido, const Ajustes& ajustes,
                             const Vistos& vistos, bool mostraVistos);

}  // namespace reports
