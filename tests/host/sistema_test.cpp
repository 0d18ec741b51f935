#include "host/sistema.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/errors.h"
#include "support/recording_data_access.h"
#include "support/scripted_host.h"

namespace zorCrmParvel {
namespace {

using testing_support::ScriptedHost;

TEST(Sistema, GivesBackWhatTheHostSet) {
  class Api : public HostApi {};
  Sistema sistema;
  Api api;
  const DataAccessRef bd = testing_support::MemoryDatabase();
  sistema.ICrmSistema_AppNome = "Parvel";
  sistema.ICrmSistema_NxtDataAccess = bd;
  sistema.ICrmSistema_NxtApi = &api;
  EXPECT_EQ(sistema.ICrmSistema_AppNome, "Parvel");
  EXPECT_EQ(sistema.ICrmSistema_NxtDataAccess, bd);
  EXPECT_EQ(sistema.ICrmSistema_NxtApi, &api);
  EXPECT_EQ(sistema.QualquerCoisa(), "");
  sistema.Alertas_Mostra();
}

TEST(Sistema, ListsAreFoundByTheirExactKeys) {
  ScriptedHost host;
  Sistema sistema;
  sistema.ICrmSistema_ZorDataAccess = testing_support::MemoryDatabase();
  const struct {
    const char* key;
    const char* title;
  } lists[] = {{"Categorias", "Categorias"},
               {"Marcas", "Marcas"},
               {"Modelos", "Modelos"},
               {"Departamentos", "Departamentos"},
               {"Companhias", "Companhias"},
               {"TiposAcessorios", "Tipos de Acessórios"},
               {"TiposGastos", "Tipos de Gastos"},
               {"TiposManut", "Tipos de Revisão"},
               {"TiposSeguro", "Tipos de Apólice"},
               {"Viagens", "Viagens"}};
  for (const auto& c : lists) {
    SCOPED_TRACE(c.key);
    const auto list = sistema.MostraListas(c.key);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->ICrmVwList_Name(), c.title);
  }
  for (const char* unknown : {"marcas", " Marcas", "Marcas ", "", "Nada"})
    EXPECT_EQ(sistema.MostraListas(unknown), nullptr) << unknown;
}

TEST(Sistema, FichasOpenEmptyAndModalOverTheHostsWindow) {
  ScriptedHost host;
  platform::Form window;
  Sistema sistema;
  sistema.ICrmSistema_ZorDataAccess = testing_support::MemoryDatabase();
  sistema.ICrmSistema_AppOwnerWnd = &window;
  using Open = void (Sistema::*)();
  const std::pair<Open, const char*> fichas[] = {
      {&Sistema::Categorias_MostraFicha, "Categorias"},
      {&Sistema::Departamentos_MostraFicha, "Departamentos"},
      {&Sistema::Modelos_MostraFicha, "Modelos"},
      {&Sistema::TiposManut_MostraFicha, "Tipos de Revisões"},
      {&Sistema::TiposAcessorios_MostraFicha, "Tipos de Acessórios"},
      {&Sistema::TiposGastos_MostraFicha, "Tipos de Gastos"},
      {&Sistema::Companhias_MostraFicha, "Companhias"},
      {&Sistema::TiposSeguro_MostraFicha, "Tipos Apólice"},
      {&Sistema::Viagens_MostraFicha, "Viagens"},
      {&Sistema::Marcas_MostraFicha, "Marcas"},
  };
  for (const auto& [open, caption] : fichas) {
    SCOPED_TRACE(caption);
    host.NextForm(
        [caption = std::string(caption)](platform::Form& form) { EXPECT_EQ(form.Caption, caption); });
    (sistema.*open)();
    EXPECT_EQ(host.owners.back(), &window);
  }
  sistema.MostraFicha("Nada");
}

TEST(Sistema, AListWithoutADatabaseFailsWithItsTitleAsTheSource) {
  ScriptedHost host;
  Sistema sistema;
  const auto list = sistema.MostraListas("TiposManut");
  const platform::RuntimeError error = testing_support::FailureOf([&] { list->ICrmVwList_Iniciar(); });
  EXPECT_EQ(error.number(), platform::kObjectNotSet);
  EXPECT_EQ(error.source(), "Tipos de Revisão::Iniciar");
}

TEST(Sistema, SaysWhatHappensInTheHostsCalendarWhileItListens) {
  ScriptedHost host;
  Calendario first;
  std::string heard;
  const auto ownListener = first.Ouvir({.AfterAlterar = [&](std::int32_t id) { heard += std::to_string(id); },
                                        .AfterInserir = {},
                                        .AfterRemover = {}});
  auto sistema = std::make_unique<Sistema>();
  sistema->Calendario(first);
  sistema->Calendario(first);
  host.ExpectBox("after aletrar7");
  host.ExpectBox("after inserir8");
  host.ExpectBox("After remover9");
  first.AfterAlterar(7);
  first.AfterInserir(8);
  first.AfterRemover(9);
  {
    Calendario next;
    sistema->Calendario(next);
    first.AfterAlterar(1);
    host.ExpectBox("after aletrar2");
    next.AfterAlterar(2);
  }
  sistema->Calendario(first);
  sistema.reset();
  first.AfterAlterar(3);
  EXPECT_EQ(heard, "713") << "the host's own listener hears everything";
}

}  // namespace
}  // namespace zorCrmParvel
