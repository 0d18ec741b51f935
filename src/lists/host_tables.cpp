#include "lists/host_columns.h"

namespace lists {
namespace {

constexpr char kMoney[] = "###,###,##0.00";
constexpr char kPrice[] = "###,###,##0.000";
constexpr char kWhole[] = "###,###,##0";
constexpr float kNarrow = 1200;
constexpr float kWide = 2500;

constexpr HostColumn kDepartment{
    .key = "Departamento", .caption = "Departamento", .width = kWide, .hidden = true};
constexpr HostColumn kNotes{.key = "Obs", .caption = "Observações", .width = kWide, .hidden = true};

HostColumn Amount(const char* key, const char* caption) {
  return {.key = key, .caption = caption, .width = kNarrow, .mask = kMoney, .summed = Summed::kSumAndMean};
}
HostColumn Reading(const char* key, const char* caption, bool hidden = false) {
  return {.key = key, .caption = caption, .width = kNarrow, .mask = kWhole, .hidden = hidden};
}
HostColumn Text(const char* key, const char* caption, bool hidden = false) {
  return {.key = key, .caption = caption, .width = kWide, .hidden = hidden};
}
HostColumn Day(const char* key, const char* caption) {
  return {.key = key, .caption = caption, .width = kNarrow};
}

constexpr char kExpenses[] =
    "SELECT e.Gst_Id, e.Qtd, e.ValorUn, e.Custo, e.Km, f.Nome AS Motorista, d.Nome AS Departamento, e.Obs "
    "FROM zor_PV_Gastos e LEFT OUTER JOIN zor_Funcionarios f ON f.Codigo = e.Motorista "
    "LEFT OUTER JOIN zor_PV_Viaturas v ON v.Matricula = e.Matricula "
    "LEFT OUTER JOIN zor_PV_Departamentos d ON d.Codigo = v.Departamento";
constexpr char kPolicies[] =
    "SELECT e.Seg_Id, e.Premio, e.Franquia, t.Nome AS TipoSeguro, d.Nome AS Departamento "
    "FROM zor_PV_Seguros e LEFT OUTER JOIN zor_PV_TiposSeguro t ON t.Codigo = e.TipoSeguro "
    "LEFT OUTER JOIN zor_PV_Viaturas v ON v.Matricula = e.Matricula "
    "LEFT OUTER JOIN zor_PV_Departamentos d ON d.Codigo = v.Departamento";
constexpr char kServices[] =
    "SELECT e.Manu_Id, e.Km, e.Custo, d.Nome AS Departamento, e.Obs "
    "FROM zor_PV_Revisoes e LEFT OUTER JOIN zor_PV_Viaturas v ON v.Matricula = e.Matricula "
    "LEFT OUTER JOIN zor_PV_Departamentos d ON d.Codigo = v.Departamento";
constexpr char kInspections[] =
    "SELECT e.Insp_Id, e.Km, e.Custo, d.Nome AS Departamento, e.Obs "
    "FROM zor_PV_Inspecoes e LEFT OUTER JOIN zor_PV_Viaturas v ON v.Matricula = e.Matricula "
    "LEFT OUTER JOIN zor_PV_Departamentos d ON d.Codigo = v.Departamento";
constexpr char kFines[] =
    "SELECT e.Id, e.ValorMulta, d.Nome AS Departamento, e.Obs "
    "FROM zor_PV_Multas e LEFT OUTER JOIN zor_PV_Viaturas v ON v.Matricula = e.Matricula "
    "LEFT OUTER JOIN zor_PV_Departamentos d ON d.Codigo = v.Departamento";
constexpr char kAccidents[] =
    "SELECT e.Id, e.Custo, e.LocalAc, d.Nome AS Departamento, e.Obs "
    "FROM zor_PV_Sinistros e LEFT OUTER JOIN zor_PV_Viaturas v ON v.Matricula = e.Matricula "
    "LEFT OUTER JOIN zor_PV_Departamentos d ON d.Codigo = v.Departamento";
constexpr char kAccessories[] =
    "SELECT e.Id, e.Qtd, e.Custo, e.DataVal, d.Nome AS Departamento, e.Obs "
    "FROM zor_PV_Acessorios e LEFT OUTER JOIN zor_PV_Viaturas v ON v.Matricula = e.Matricula "
    "LEFT OUTER JOIN zor_PV_Departamentos d ON d.Codigo = v.Departamento";
// 9,999,999 kilometres: no revision is planned by them.
constexpr char kVehicles[] =
    "SELECT v.Matricula, v.KmActual, v.Media, v.CustoMedioKmT, v.DataPrxRev, "
    "CASE WHEN v.KmPrxRev < 9999999 THEN v.KmPrxRev END AS KmPrxRev, v.DataPrxInsp, "
    "CASE WHEN v.Inactiva = 1 THEN 'Inactiva' ELSE 'Activa' END AS Estado, c.Nome AS Categoria "
    "FROM zor_PV_Viaturas v LEFT OUTER JOIN zor_PV_Categorias c ON c.Codigo = v.Categoria";

std::vector<HostTable> Tables() {
  return {
      {"Gastos",
       "Seg_Id",
       kExpenses,
       "e.Gst_Id",
       false,
       {Amount("Qtd", "Qtd."),
        {.key = "ValorUn", .caption = "Valor Un.", .width = kNarrow, .mask = kPrice, .summed = Summed::kMean},
        Amount("Custo", "Custo"),
        Reading("Km", "Km"),
        Text("Motorista", "Motorista"),
        kDepartment,
        kNotes}},
      {"Apolices",
       "Seg_Id",
       kPolicies,
       "e.Seg_Id",
       false,
       {Amount("Premio", "Prémio"),
        {.key = "Franquia", .caption = "Franquia", .width = kNarrow, .mask = kMoney, .hidden = true},
        Text("TipoSeguro", "Tipo Seguro", true),
        kDepartment}},
      {"Revisoes",
       "Seg_Id",
       kServices,
       "e.Manu_Id",
       false,
       {Reading("Km", "Km"), Amount("Custo", "Custo"), kDepartment, kNotes}},
      {"Inspecoes",
       "Seg_Id",
       kInspections,
       "e.Insp_Id",
       false,
       {Reading("Km", "Km", true), Amount("Custo", "Custo"), kDepartment, kNotes}},
      {"Multas", "Seg_Id", kFines, "e.Id", false, {Amount("ValorMulta", "Valor"), kDepartment, kNotes}},
      {"Sinistros",
       "Seg_Id",
       kAccidents,
       "e.Id",
       false,
       {Amount("Custo", "Custo"), Text("LocalAc", "Local", true), kDepartment, kNotes}},
      {"Acessorios",
       "Seg_Id",
       kAccessories,
       "e.Id",
       false,
       {Amount("Qtd", "Qtd."), Amount("Custo", "Custo"), Day("DataVal", "Validade"), kDepartment, kNotes}},
      {"Viaturas",
       "Matricula",
       kVehicles,
       "v.Matricula",
       true,
       {Reading("KmActual", "Km"),
        {.key = "Media", .caption = "Média", .width = kNarrow, .mask = kMoney, .summed = Summed::kMean},
        {.key = "CustoMedioKmT",
         .caption = "€/km",
         .width = kNarrow,
         .mask = kPrice,
         .summed = Summed::kMean},
        Day("DataPrxRev", "Próx. revisão"),
        Reading("KmPrxRev", "Revisão aos km"),
        Day("DataPrxInsp", "Próx. inspecção"),
        Text("Estado", "Estado", true),
        Text("Categoria", "Categoria", true)}},
  };
}

}  // namespace

const HostTable* HostTableOf(std::string_view list) {
  static const std::vector<HostTable> tables = Tables();
  for (const HostTable& table : tables)
    if (list == table.list) return &table;
  return nullptr;
}

}  // namespace lists
