#include "history/view/table_names.h"

#include "platform/text.h"

namespace history {
namespace {

/// Lists whose table isn't named after them.
constexpr TableName kOtherLists[] = {
    {"zor_Funcionarios", "Motoristas"}, {"zor_PV_Seguros", "Apolices"},
    {"zor_PV_Viaturas", "Tacografos"},  {"zor_PV_Viaturas", "Selo"},
    {"zor_Funcionarios", "TacMot"},     {"zor_PV_Viaturas", "AlertasViat"},
    {"zor_Funcionarios", "AlertasMot"}, {"zor_PV_Acessorios", "AlertasAcess"},
    {"zor_PV_Viaturas", "AlertasAp"},   {"zor_PV_Viaturas", "AlertasRev"},
    {"zor_PV_Viaturas", "AlertasInsp"}};

}  // namespace

const std::vector<TableName>& TableNames() {
  static const std::vector<TableName> names = {{"zor_PV_Viaturas", "Viaturas"},
                                               {"zor_Funcionarios", "Motoristas"},
                                               {"zor_CartasCond", "Classes da carta"},
                                               {"zor_PV_Gastos", "Gastos"},
                                               {"zor_PV_Seguros", "Apólices"},
                                               {"zor_PV_Revisoes", "Revisões"},
                                               {"zor_PV_Inspecoes", "Inspecções"},
                                               {"zor_PV_Multas", "Multas"},
                                               {"zor_PV_Sinistros", "Sinistros"},
                                               {"zor_PV_Acessorios", "Acessórios"},
                                               {"zor_Fotos", "Fotografias"},
                                               {"zor_ArquivoDigital", "Arquivo digital"},
                                               {"zor_PV_Attach", "Ficheiros anexados"},
                                               {"zor_PV_Categorias", "Categorias"},
                                               {"zor_PV_Companhias", "Companhias"},
                                               {"zor_PV_Departamentos", "Departamentos"},
                                               {"zor_PV_Marcas", "Marcas"},
                                               {"zor_PV_Modelos", "Modelos"},
                                               {"zor_PV_TiposAcessorios", "Tipos de acessórios"},
                                               {"zor_PV_TiposSeguro", "Tipos de apólice"},
                                               {"zor_PV_TiposGastos", "Tipos de gastos"},
                                               {"zor_PV_TiposManut", "Tipos de revisão"},
                                               {"zor_PV_Viagens", "Viagens"}};
  return names;
}

std::string NameOfTable(const std::string& table) {
  for (const TableName& each : TableNames())
    if (platform::EqualsIgnoringCase(each.table, table)) return each.name;
  return table;
}

std::string TableOfList(const std::string& list) {
  for (const TableName& each : kOtherLists)
    if (list == each.name) return each.table;
  for (const TableName& each : TableNames())
    if (each.table == "zor_PV_" + list) return each.table;
  return {};
}

}  // namespace history
