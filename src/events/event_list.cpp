#include "events/event_list.h"

#include "events/gastos_form.h"

namespace zorCrmParvel {
namespace {

constexpr const char* kChave = "Seg_Id";
constexpr ColunaDeLista kMatricula{"Matricula", 1500, "Matrícula"};
constexpr ColunaDeLista kMarca{"Marca", 2500, nullptr};
constexpr ColunaDeLista kData{"Data", 1500, nullptr};
/// The key column, which users have no need of. Where it has no alignment of its own, 0.
constexpr ColunaDeLista kSegId{kChave, 2500, "SISTEMA", platform::kGridLong, 0};

const ListaDeEventos kGastos{
    "Gastos",
    " SELECT  zor_PV_Gastos.Matricula, zor_PV_Marcas.Nome AS Marca, zor_PV_Gastos.Data AS Data, "
    "zor_PV_TiposGastos.Nome as TpGasto, zor_PV_Gastos.Gst_Id as Seg_Id FROM         zor_PV_Gastos LEFT "
    "OUTER JOIN "
    "zor_PV_Viaturas ON zor_PV_Viaturas.Matricula=zor_PV_Gastos.Matricula Left outer join  zor_PV_Marcas ON "
    "zor_PV_Marcas.Codigo = zor_PV_Viaturas.Marca left outer join zor_PV_TiposGastos ON "
    "zor_PV_TiposGastos.Codigo=zor_PV_Gastos.TipoGasto ORDER BY zor_PV_Gastos.Matricula, Data",
    {kMatricula, kMarca, kData, {"TpGasto", 2500, "Tipo Gasto"}, kSegId},
    &NovaFichaDeEvento<Gastos>,
    true};

}  // namespace

RecordsetRef EventList::AbrirLinhas() {
  RecordsetRef linhas;
  mybd->AbrirLeitura("", lista_.sql, linhas);
  return linhas;
}

std::unique_ptr<EventForm> EventList::NovaFicha() const {
  auto ficha = lista_.ficha();
  ficha->Load();
  ficha->mybd = mybd;
  ficha->TipoMostrar = 0;
  return ficha;
}

void EventList::ICrmVwList_Novo() {
  Executar("Novo", [&] {
    NovaFicha()->ShowModal();
    ICrmVwList_Iniciar();
  });
}

void EventList::ICrmVwList_Editar(GridRow* row) {
  Executar("Editar", [&] {
    const auto id = Chave(row, kChave);
    if (!id) return;
    const auto ficha = NovaFicha();
    ficha->Carrega(platform::Variant(*id).ToLong());
    ficha->ShowModal();
    ICrmVwList_Iniciar();
  });
}

void EventList::ICrmVwList_Remover(GridRow* row) {
  Executar("Remover", [&] {
    const auto id = Chave(row, kChave);
    if (!id) return;
    const std::string matricula = lista_.anulaComMatricula ? *Chave(row, "Matricula") : "";
    NovaFicha()->Anular(platform::Variant(*id).ToLong(), matricula);
    ICrmVwList_Iniciar();
  });
}

VwLstGastos::VwLstGastos() : EventList(kGastos) {}

}  // namespace zorCrmParvel
