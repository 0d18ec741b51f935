#include "host/sistema.h"

#include <array>

#include "alerts/alert_list.h"
#include "alerts/alert_rules.h"
#include "documents/arquivo_form.h"
#include "documents/attach_form.h"
#include "drivers/motoristas_form.h"
#include "drivers/motoristas_list.h"
#include "events/event_list.h"
#include "events/gastos_form.h"
#include "events/incidents_form.h"
#include "events/seguros_form.h"
#include "events/upkeep_form.h"
#include "masterdata/code_table_form.h"
#include "masterdata/code_table_list.h"
#include "masterdata/tipos_gastos_form.h"
#include "platform/host.h"
#include "vehicles/actual_list.h"
#include "vehicles/viaturas_form.h"
#include "vehicles/viaturas_list.h"

namespace zorCrmParvel {
namespace {

using ListMaker = std::unique_ptr<ICrmVwList> (*)(const DataAccessRef& bd);

template <typename T>
std::unique_ptr<ICrmVwList> NovaLista(const DataAccessRef& bd) {
  auto lista = std::make_unique<T>();
  lista->mybd = bd;
  return lista;
}

template <std::int16_t Tipo>
std::unique_ptr<ICrmVwList> NovaListaPeriodica(const DataAccessRef& bd) {
  auto lista = std::make_unique<VwLstActual>();
  lista->mybd = bd;
  lista->Tipo = Tipo;
  return lista;
}

struct ListKey {
  const char* key;
  ListMaker make;
};

/// The lists by their keys, in the order in which keys are tried.
constexpr std::array kLists = {
    ListKey{"Viaturas", &NovaLista<VwLstViaturas>},
    ListKey{"Categorias", &NovaLista<VwLstCategorias>},
    ListKey{"Marcas", &NovaLista<VwLstMarcas>},
    ListKey{"Modelos", &NovaLista<VwLstModelos>},
    ListKey{"Departamentos", &NovaLista<VwLstDepartamentos>},
    ListKey{"Companhias", &NovaLista<VwLstCompanhias>},
    ListKey{"TiposAcessorios", &NovaLista<VwLstTiposAcessorios>},
    ListKey{"TiposGastos", &NovaLista<VwLstTiposGastos>},
    ListKey{"TiposManut", &NovaLista<VwLstTiposManut>},
    ListKey{"TiposSeguro", &NovaLista<VwLstTiposSeguro>},
    ListKey{"Viagens", &NovaLista<VwLstViagens>},
    ListKey{"Motoristas", &NovaLista<VwLstMotoristas>},
    ListKey{"Apolices", &NovaLista<VwLstSeguros>},
    ListKey{"Sinistros", &NovaLista<VwLstSinistros>},
    ListKey{"Multas", &NovaLista<VwLstMultas>},
    ListKey{"Gastos", &NovaLista<VwLstGastos>},
    ListKey{"Revisoes", &NovaLista<VwLstRevisoes>},
    ListKey{"Acessorios", &NovaLista<VwLstAcessorios>},
    ListKey{"Inspecoes", &NovaLista<VwLstInspecoes>},
    ListKey{"AlertasViat", &NovaLista<VwLstAlertasViat>},
    ListKey{"AlertasAp", &NovaLista<VwLstAlertas>},
    ListKey{"AlertasRev", &NovaLista<VwLstAlertasRev>},
    ListKey{"AlertasInsp", &NovaLista<VwLstAlertasInsp>},
    ListKey{"AlertasMot", &NovaLista<VwLstAlertasMot>},
    ListKey{"AlertasAcess", &NovaLista<VwLstAlertasAcess>},
    ListKey{"Tacografos", &NovaListaPeriodica<1>},
    ListKey{"TacMot", &NovaListaPeriodica<2>},
    ListKey{"Selo", &NovaListaPeriodica<3>},
};

const ListKey* FindList(const std::string& name) {
  for (const ListKey& list : kLists)
    if (name == list.key) return &list;
  return nullptr;
}

template <typename T>
void Register(const char* name) {
  FormCatalog::Shared().Register(name, [] { return std::make_unique<T>(); });
}

}  // namespace

Sistema::Sistema() {
  Register<Viaturas>("Viaturas");
  Register<Motoristas>("Motoristas");
  Register<Multas>("Multas");
  Register<Inspecoes>("Inspecoes");
  Register<Acessorios>("Acessorios");
  Register<Sinistros>("Sinistros");
  Register<Seguros>("Seguros");
  Register<Revisoes>("Revisoes");
  Register<Gastos>("Gastos");
  Register<Categorias>("Categorias");
  Register<Departamentos>("Departamentos");
  Register<Modelos>("Modelos");
  Register<TiposManut>("TiposManut");
  Register<TiposAcessorios>("TiposAcessorios");
  Register<TiposGastos>("TiposGastos");
  Register<Companhias>("Companhias");
  Register<TiposSeguro>("TiposSeguro");
  Register<Viagens>("Viagens");
  Register<Marcas>("Marcas");
  Register<frmArquivo>("frmArquivo");
  Register<frm_Attach>("frm_Attach");
}

std::vector<std::string> Sistema::ChavesDasListas() {
  std::vector<std::string> keys;
  keys.reserve(kLists.size());
  for (const ListKey& list : kLists) keys.emplace_back(list.key);
  return keys;
}

bool Sistema::TemLista(const std::string& NomeLista) { return FindList(NomeLista) != nullptr; }

std::unique_ptr<ICrmVwList> Sistema::MostraListas(const std::string& NomeLista) {
  const ListKey* list = FindList(NomeLista);
  return list == nullptr ? nullptr : list->make(ICrmSistema_ZorDataAccess);
}

void Sistema::MostraFicha(const std::string& nome) {
  const auto ficha = FormCatalog::Shared().Make(nome);
  if (!ficha) return;
  ficha->mybd = ICrmSistema_ZorDataAccess;
  ficha->ShowModal(ICrmSistema_AppOwnerWnd);
}

void Sistema::Calendario(zorCrmParvel::Calendario& calendario) {
  const auto say = [](const char* text) {
    return [text](std::int32_t id) { platform::MsgBox(text + std::to_string(id)); };
  };
  myCalendario_ = calendario.Ouvir({.AfterAlterar = say("after aletrar"),
                                    .AfterInserir = say("after inserir"),
                                    .AfterRemover = say("After remover")});
}

void Sistema::VerificaAlertasMotoristas(bool& Alerta) {
  Tools::VerificaAlertasMotoristas(ICrmSistema_ZorDataAccess, Alerta);
}

void Sistema::VerificaAlertasInspecoes(bool& Alerta) {
  Tools::VerificaAlertasInspecoes(ICrmSistema_ZorDataAccess, Alerta);
}

void Sistema::VerificaAlertasRevisoes(bool& Alerta) {
  Tools::VerificaAlertasRevisoes(ICrmSistema_ZorDataAccess, Alerta);
}

void Sistema::VerificaAlertasAcessorios(bool& Alerta) {
  Tools::VerificaAlertasAcessorios(ICrmSistema_ZorDataAccess, Alerta);
}

void Sistema::VerificaAlertasApolices(bool& Alerta) {
  Tools::VerificaAlertasApolices(ICrmSistema_ZorDataAccess, Alerta);
}

void Sistema::ICrmSistema_AlertasAdd(RecordsetRef& alertas) {
  using Check = void (Sistema::*)(bool&);
  constexpr std::array<std::pair<Check, const char*>, 5> kFamilies = {{
      {&Sistema::VerificaAlertasApolices, "Apólices"},
      {&Sistema::VerificaAlertasRevisoes, "Revisões"},
      {&Sistema::VerificaAlertasInspecoes, "Inspecções"},
      {&Sistema::VerificaAlertasAcessorios, "Acessórios"},
      {&Sistema::VerificaAlertasMotoristas, "Motoristas"},
  }};
  const Snapshot snapshot(ICrmSistema_ZorDataAccess);
  bool alerta = false;  // carries over from one family to the next
  for (const auto& [check, family] : kFamilies) {
    (this->*check)(alerta);
    if (!alerta) continue;
    alertas->AddNew();
    alertas->Fields("APLICACAO").SetValue("Parvel");
    alertas->Fields("Entidade").SetValue(family);
    alertas->Fields("Texto").SetValue("Verificar alertas");
    alertas->Update();
  }
}

}  // namespace zorCrmParvel
