#include "vehicles/actual_list.h"

#include <array>

#include "drivers/motoristas.h"
#include "platform/host.h"
#include "vehicles/computed_dates.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {
namespace {

using platform::Date;

enum TipoDeLista : std::int16_t { kTacografos = 1, kCartoes = 2, kSelo = 3 };
constexpr long kActualizar = 945;
constexpr int kDiasEntreDescargas = 27;

struct ListaPeriodica {
  const char* titulo;
  const char* sql;
  std::vector<ColunaDeLista> colunas;
};

const ListaPeriodica* Lista(std::int16_t tipo) {
  static const std::array<ListaPeriodica, 3> listas = {
      ListaPeriodica{"Tacógrafos",
                     " SELECT     zor_PV_Viaturas.Matricula, zor_PV_Marcas.Nome as Marca, "
                     "zor_PV_Viaturas.DtDescarga "
                     " FROM         zor_PV_Viaturas INNER JOIN"
                     " zor_PV_Marcas ON zor_PV_Viaturas.Marca = zor_PV_Marcas.Codigo"
                     " Where (zor_PV_Viaturas.Tacografo = 1) and Inactiva=0",
                     {{"Matricula", 2500, "Matrícula"},
                      {"Marca", 4000, "Marca"},
                      {"DtDescarga", 2000, "Próxima Descarga"}}},
      ListaPeriodica{
          "Cartões de condutor",
          " SELECT     Codigo, Nome, DtDescarga"
          " From zor_Funcionarios"
          " WHERE     (Inactivo = 0) AND (NoCartaoCondutor <> '')",
          {{"Codigo", 2500, "Código"}, {"Nome", 4000, "Nome"}, {"DtDescarga", 2000, "Próxima Descarga"}}},
      ListaPeriodica{
          "Selo",
          " SELECT     zor_PV_Viaturas.Matricula, zor_PV_Marcas.Nome, zor_PV_Viaturas.DataSelo"
          " FROM         zor_PV_Viaturas INNER JOIN"
          " zor_PV_Marcas ON zor_PV_Viaturas.Marca = zor_PV_Marcas.Codigo"
          " Where (zor_PV_Viaturas.Inactiva = 0)",
          {{"Matricula", 2500, "Matrícula"}, {"Nome", 4000, "Nome"}, {"DataSelo", 2000, "Pagamento até "}}}};
  return tipo >= kTacografos && tipo <= kSelo ? &listas[static_cast<std::size_t>(tipo - 1)] : nullptr;
}

/// Reads a record by its key, changes it and writes it back.
template <typename T, typename F>
void Mudar(const DataAccessRef& bd, T& registo, F&& mudar) {
  registo.bd = bd;
  registo.Ler();
  mudar();
  registo.Escrever();
}

}  // namespace

std::string VwLstActual::Titulo() const {
  const ListaPeriodica* lista = Lista(Tipo);
  return lista == nullptr ? "" : lista->titulo;
}

RecordsetRef VwLstActual::AbrirLinhas() {
  RecordsetRef linhas;
  mybd->AbrirLeitura("", Lista(Tipo)->sql, linhas);
  return linhas;
}

const std::vector<ColunaDeLista>& VwLstActual::Colunas() const { return Lista(Tipo)->colunas; }

void VwLstActual::ICrmVwList_Iniciar() {
  if (Lista(Tipo) != nullptr) ListFrame::ICrmVwList_Iniciar();
}

void VwLstActual::ICrmVwList_BeforePopUpViewListEdit(PopUpMenu& menu) {
  for (long comando : {901L, 900L, 902L, 800L})
    if (platform::MenuItem* item = menu.Find(comando)) item->visible = false;
  menu.Add(kActualizar, "Actualizar").visible = true;
}

void VwLstActual::ICrmVwList_ExecutePopUpViewListEdit(PopUpMenu& menu) {
  if (Grid().Row() < 0) return;
  const GridRow row = Grid().RowAt(Grid().Row());
  if (row.isGroup() || row.kind() != 0 || menu.Command != kActualizar) return;
  if (Tipo == kTacografos)
    ActualizarTacografo(row);
  else if (Tipo == kCartoes)
    ActualizarMotorista(row);
  else if (Tipo == kSelo)
    ActualizarSelo(row);
  else
    return;
  ICrmVwList_Iniciar();
}

std::string VwLstActual::Texto(const GridRow& row, const char* coluna) const {
  return Grid().CellText(row.number(), Grid().ColumnIndex(coluna));
}

/// One period after the date shown, however late it is.
Date VwLstActual::ProximaDescarga(const GridRow& row) const {
  return Date::Parse(Texto(row, "DtDescarga")).AddDays(kDiasEntreDescargas);
}

void VwLstActual::ActualizarTacografo(const GridRow& row) {
  const Date proxima = ProximaDescarga(row);
  clViaturas viatura;
  viatura.Matricula = Texto(row, "Matricula");
  Mudar(mybd, viatura, [&] { viatura.DtDescarga = proxima; });
}

void VwLstActual::ActualizarMotorista(const GridRow& row) {
  const Date proxima = ProximaDescarga(row);
  clMotoristas motorista;
  motorista.Codigo = Texto(row, "Codigo");
  Mudar(mybd, motorista, [&] { motorista.DtDescarga = proxima; });
}

void VwLstActual::ActualizarSelo(const GridRow& row) {
  clViaturas viatura;
  viatura.Matricula = Texto(row, "Matricula");
  Mudar(mybd, viatura, [&] {
    const Date fim = FimDoPrazoDoSelo(viatura.DataMatricula.month(), platform::Today());
    if (viatura.DataSelo.IsZero()) {
      // Without a date for the tax, it is the registration that moves to the end of its month.
      viatura.DataMatricula = fim;
      viatura.SeloPago = false;
    } else if (viatura.DataSelo.DayOnly() != fim) {
      viatura.DataSelo = fim;
      viatura.SeloPago = false;
    }
  });
}

}  // namespace zorCrmParvel
