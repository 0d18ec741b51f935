#include "exchange/profile/import_kinds.h"

namespace exchange {
namespace {

constexpr const char* kVehicles = "zor_PV_Viaturas";
constexpr const char* kDrivers = "zor_Funcionarios";
constexpr CodeColumn kPlate{"Matricula", kVehicles};
constexpr CodeColumn kDriver{"Motorista", kDrivers};

ImportKind Event(const char* name, const char* title, const char* table, const char* id, const char* amount,
                 Figures figures, std::vector<CodeColumn> codes, const char* date = "Data") {
  codes.insert(codes.begin(), kPlate);
  return {.name = name,
          .title = title,
          .table = table,
          .key = id,
          .numbered = true,
          .owner = "Matricula",
          .date = date,
          .amount = amount,
          .figures = figures,
          .codes = std::move(codes)};
}

ImportKind Codes(const char* name, const char* title, const char* table, std::vector<CodeColumn> codes = {}) {
  return {.name = name,
          .title = title,
          .table = table,
          .key = "Codigo",
          .numbered = false,
          .owner = "Codigo",
          .date = nullptr,
          .amount = nullptr,
          .figures = Figures::kNone,
          .codes = std::move(codes)};
}

std::vector<ImportKind> Make() {
  return {{.name = "viaturas",
           .title = "Viaturas",
           .table = kVehicles,
           .key = "Matricula",
           .numbered = false,
           .owner = "Matricula",
           .date = nullptr,
           .amount = nullptr,
           .figures = Figures::kNone,
           .codes = {{"Marca", "zor_PV_Marcas"},
                     {"Modelo", "zor_PV_Modelos"},
                     {"Categoria", "zor_PV_Categorias"},
                     {"Departamento", "zor_PV_Departamentos"},
                     {"CompLeasing", "zor_PV_Companhias"}}},
          Codes("motoristas", "Motoristas", kDrivers),
          Event("gastos", "Gastos", "zor_PV_Gastos", "Gst_Id", "Custo", Figures::kExpenses,
                {{"TipoGasto", "zor_PV_TiposGastos"}, kDriver, {"Viagem", "zor_PV_Viagens"}}),
          Event("apolices", "Apólices", "zor_PV_Seguros", "Seg_Id", "Premio", Figures::kNone,
                {{"Companhia", "zor_PV_Companhias"}, {"TipoSeguro", "zor_PV_TiposSeguro"}}, "Validade"),
          Event("revisoes", "Revisões", "zor_PV_Revisoes", "Manu_Id", "Custo", Figures::kCostsWithRevisions,
                {{"TipoManut", "zor_PV_TiposManut"}}),
          Event("inspecoes", "Inspecções", "zor_PV_Inspecoes", "Insp_Id", "Custo", Figures::kCosts, {}),
          Event("multas", "Multas", "zor_PV_Multas", "Id", "ValorMulta", Figures::kNone, {kDriver}),
          Event("sinistros", "Sinistros", "zor_PV_Sinistros", "Id", "Custo", Figures::kNone, {kDriver}),
          Event("acessorios", "Acessórios", "zor_PV_Acessorios", "Id", "Custo", Figures::kCosts,
                {{"TipoAcessorio", "zor_PV_TiposAcessorios"}}),
          Codes("marcas", "Marcas", "zor_PV_Marcas"),
          Codes("modelos", "Modelos", "zor_PV_Modelos"),
          Codes("categorias", "Categorias", "zor_PV_Categorias"),
          Codes("departamentos", "Departamentos", "zor_PV_Departamentos"),
          Codes("companhias", "Companhias", "zor_PV_Companhias"),
          Codes("tipos-gastos", "Tipos de gastos", "zor_PV_TiposGastos"),
          Codes("tipos-manutencao", "Tipos de manutenção", "zor_PV_TiposManut"),
          Codes("tipos-seguro", "Tipos de seguro", "zor_PV_TiposSeguro"),
          Codes("tipos-acessorios", "Tipos de acessórios", "zor_PV_TiposAcessorios"),
          Codes("viagens", "Viagens", "zor_PV_Viagens"),
          {.name = "cartas",
           .title = "Cartas de condução",
           .table = "zor_CartasCond",
           .key = "Motorista",
           .numbered = false,
           .owner = "Motorista",
           .date = nullptr,
           .amount = nullptr,
           .figures = Figures::kNone,
           .codes = {kDriver}}};
}

}  // namespace

const std::vector<ImportKind>& ImportKinds() {
  static const std::vector<ImportKind> kinds = Make();
  return kinds;
}

const ImportKind* KindOf(std::string_view name) {
  for (const ImportKind& kind : ImportKinds())
    if (name == kind.name) return &kind;
  return nullptr;
}

const char* CodeTableOf(const ImportKind& kind, std::string_view column) {
  for (const CodeColumn& code : kind.codes)
    if (column == code.column) return code.table;
  return nullptr;
}

}  // namespace exchange
