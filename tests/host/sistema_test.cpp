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

TEST(Sistema, ListsAreFoundByTheirExactKeys) {
  ScriptedHost host;
  Sistema sistema;
  sistema.ICrmSistema_ZorDataAccess = testing_support::MemoryDatabase();
  EXPECT_EQ(Sistema::ChavesDasListas().size(), 28U);
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
  const Open fichas[] = {&Sistema::Categorias_MostraFicha,      &Sistema::Departamentos_MostraFicha,
                         &Sistema::Modelos_MostraFicha,         &Sistema::TiposManut_MostraFicha,
                         &Sistema::TiposAcessorios_MostraFicha, &Sistema::TiposGastos_MostraFicha,
                         &Sistema::Companhias_MostraFicha,      &Sistema::TiposSeguro_MostraFicha,
                         &Sistema::Viagens_MostraFicha,         &Sistema::Marcas_MostraFicha};
  std::string captions;
  for (const Open open : fichas) {
    host.NextForm([&](platform::Form& form) { captions += form.Caption + "; "; });
    (sistema.*open)();
    EXPECT_EQ(host.owners.back(), &window);
  }
  EXPECT_EQ(captions,
            "Categorias; Departamentos; Modelos; Tipos de Revisões; Tipos de Acessórios; Tipos de Gastos; "
            "Companhias; Tipos Apólice; Viagens; Marcas; ");
  sistema.MostraFicha("Nada");
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
