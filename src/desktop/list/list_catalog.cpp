#include "desktop/list/list_catalog.h"

#include <cstring>

namespace desktop {
namespace {

constexpr char kFleet[] = "FROTA";
constexpr char kEvents[] = "EVENTOS";
constexpr char kWork[] = "TRABALHOS";
constexpr char kDates[] = "PRAZOS";
constexpr char kAlerts[] = "ALERTAS";
constexpr char kAnalysis[] = "ANÁLISE";
constexpr char kTables[] = "TABELAS";
constexpr char kMemory[] = "REGISTO DO QUE SE FEZ";

}  // namespace

const std::vector<ListEntry>& AllLists() {
  static const std::vector<ListEntry> lists = {
      {kFleet, "Viaturas", "Viaturas", "Matricula", "Viaturas"},
      {kFleet, "Motoristas", "Motoristas", "Codigo", "Motoristas"},
      {kEvents, "Gastos", "Gastos", "Seg_Id", "Gastos"},
      {kEvents, "Apolices", "Apólices", "Seg_Id", "Seguros"},
      {kEvents, "Revisoes", "Revisões", "Seg_Id", "Revisoes"},
      {kEvents, "Inspecoes", "Inspecções", "Seg_Id", "Inspecoes"},
      {kEvents, "Multas", "Multas", "Seg_Id", "Multas"},
      {kEvents, "Sinistros", "Sinistros", "Seg_Id", "Sinistros"},
      {kEvents, "Acessorios", "Acessórios", "Seg_Id", "Acessorios"},
      {kWork, "Tacografos", "Tacógrafos", "Matricula", nullptr},
      {kWork, "TacMot", "Cartões de condutor", "Codigo", nullptr},
      {kWork, "Selo", "Selo", "Matricula", nullptr},
      {kDates, "Calendario", "Calendário", "", nullptr},
      {kAlerts, "AlertasAp", "Apólices", "Matricula", nullptr},
      {kAlerts, "AlertasRev", "Revisões", "Matricula", nullptr},
      {kAlerts, "AlertasInsp", "Inspecções", "Matricula", nullptr},
      {kAlerts, "AlertasAcess", "Acessórios", "Id", nullptr},
      {kAlerts, "AlertasMot", "Motoristas", "Codigo", nullptr},
      {kAlerts, "AlertasViat", "Viaturas", "Matricula", nullptr},
      {kAnalysis, "RelConsumos", "Consumos", "", nullptr},
      {kAnalysis, "RelCustos", "Custos", "", nullptr},
      {kAnalysis, "RelTotal", "Custo total", "", nullptr},
      {kAnalysis, "RelQuilometros", "Quilómetros", "", nullptr},
      {kAnalysis, "RelExcepcoes", "Excepções", "", nullptr},
      {kAnalysis, "RelMovimentos", "Movimentos", "", nullptr},
      {kAnalysis, "RelEmissoes", "Emissões", "", nullptr},
      {kTables, "Categorias", "Categorias", "Codigo", "Categorias"},
      {kTables, "Companhias", "Companhias", "Codigo", "Companhias"},
      {kTables, "Departamentos", "Departamentos", "Codigo", "Departamentos"},
      {kTables, "Marcas", "Marcas", "Codigo", "Marcas"},
      {kTables, "Modelos", "Modelos", "Codigo", "Modelos"},
      {kTables, "TiposAcessorios", "Tipos de acessórios", "Codigo", "TiposAcessorios"},
      {kTables, "TiposSeguro", "Tipos de apólice", "Codigo", "TiposSeguro"},
      {kTables, "TiposGastos", "Tipos de gastos", "Codigo", "TiposGastos"},
      {kTables, "TiposManut", "Tipos de revisão", "Codigo", "TiposManut"},
      {kTables, "Viagens", "Viagens", "Codigo", "Viagens"},
      {kMemory, "Historico", "Histórico", nullptr, nullptr},
  };
  return lists;
}

const ListEntry* FindList(const char* key) {
  for (const ListEntry& entry : AllLists())
    if (std::strcmp(entry.key, key) == 0) return &entry;
  return nullptr;
}

bool IsAlertList(const ListEntry& entry) { return entry.group == kAlerts; }
bool IsEventList(const ListEntry& entry) { return entry.group == kEvents; }

}  // namespace desktop
