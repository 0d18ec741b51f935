#include "desktop/ficha/ficha_contents.h"

#include "desktop/ficha/ficha_words.h"
#include "desktop/ficha/form_dialog.h"
#include "host/form_catalog.h"
#include "masterdata/code_table.h"
#include "open_window.h"
#include "support/fleet.h"
#include "support/scripted_host.h"

namespace desktop_test {
namespace {

/// Whether the window's own button asks before it closes a ficha of brands, after what was done in it. The
/// ficha is open afterwards when it asked, since the answer is no, and is then left by its "Sair".
class ClosingTest : public OpenWindow {
 protected:
  ClosingTest() {
    testing_support::AddCode<zorCrmParvel::clMarcas>(bd(), "REN", "Renault");
    window.ShowList("Marcas");
  }
  bool AsksAfter(const std::function<void(QWidget&)>& done, const char* title) {
    const auto boxes = desk.script.boxes.size();
    desk.script.Next([&](QWidget& ficha) {
      done(ficha);
      EXPECT_EQ(ficha.windowTitle().toStdString(), title);
      const auto changed = [&] {
        desk.script.Answer("Não");
        ficha.close();
      };
      if (asks)
        changed();
      else
        ficha.close();
      EXPECT_EQ(ficha.isVisible(), asks);
      if (asks) ClickButton(ficha, "Sair");
    });
    window.page()->New();
    return desk.script.boxes.size() > boxes;
  }
  bool asks = false;
};

TEST_F(ClosingTest, OnlyWhatTheUserChangedAndDidNotConfirmIsAskedFor) {
  struct Case {
    const char* what;
    std::function<void(QWidget&)> done;
    const char* title;
    bool asks;
  };
  const auto show = [](QWidget& ficha) {
    Type(ficha, "REN");
    Press(ficha, Qt::Key_Return);
  };
  const Case cases[] = {
      {"nothing typed", [](QWidget&) {}, "Marcas", false},
      {"a new code", [](QWidget& ficha) { Type(ficha, "CIT"); }, "Marcas: CIT", true},
      {"a record that is shown", show, "Marcas: REN, Renault", false},
      {"a record changed",
       [&](QWidget& ficha) {
         show(ficha);
         Type(ficha, "X");
       },
       "Marcas: REN, X", true},
      {"a record changed and confirmed",
       [&](QWidget& ficha) {
         show(ficha);
         Type(ficha, "Renault 2");
         ClickButton(ficha, "Confirmar");
       },
       "Marcas", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    asks = c.asks;
    EXPECT_EQ(AsksAfter(c.done, c.title), c.asks);
  }
}

TEST_F(ClosingTest, LookingThroughTheTabsOfAVehicleChangesNothing) {
  testing_support::AddFleet(bd(), 1000);
  testing_support::AddVehicle(bd(), "AA-00-01");
  testing_support::AddExpense(bd(), "AA-00-01", platform::Date::FromParts(2024, 2, 10), "PORTAGEM", "1",
                              "7,5", 0);
  window.ShowList("Viaturas");
  desk.script.Next([](QWidget& ficha) {
    for (int tab = 0; tab < 8; ++tab) Press(ficha, Qt::Key_PageDown, Qt::ControlModifier);
    ficha.close();
    EXPECT_FALSE(ficha.isVisible());
  });
  window.page()->Edit();
}

TEST_F(ClosingTest, EnterOnConfirmarSaysWhatWasSavedAndANameOrAdviceHelpsInAField) {
  desk.script.Next([](QWidget& shown) {
    auto& ficha = dynamic_cast<desktop::FormDialog&>(shown);
    for (const char* text : {"CIT", "Citroën"}) {
      Type(ficha, text);
      Press(ficha, Qt::Key_Return);
    }
    Press(ficha, Qt::Key_Return);
    EXPECT_EQ(ficha.aids().Text().toStdString(), "Guardado: Marcas: CIT, Citroën");
    ClickButton(ficha, "Sair");
  });
  window.page()->New();
  window.ShowList("Viaturas");
  desk.script.Next([this](QWidget& shown) {
    auto& ficha = dynamic_cast<desktop::FormDialog&>(shown);
    Type(ficha, "12ab34");
    for (int i = 0; i < 2; ++i) Press(ficha, Qt::Key_Return);
    Type(ficha, "renault");
    Press(ficha, Qt::Key_Return);
    EXPECT_EQ(ficha.windowTitle(), "Viaturas: 12-AB-34, REN");
    Type(ficha, "Clio");
    desk.script.Answer("OK");
    Press(ficha, Qt::Key_Return);
    EXPECT_TRUE(ficha.aids().Text().startsWith(
        "«Clio» ainda não existe: F3 mostra o que há, F4 abre a ficha para criar."));
    Type(ficha, "x");
    EXPECT_FALSE(ficha.aids().Text().startsWith("«Clio»"));
    ClickButton(ficha, "Sair");
  });
  window.page()->New();
}

/// A key that is said does something, and F4 does nothing where it isn't said.
TEST_F(ClosingTest, TheLineUnderTheFieldsTellsTheKeysThatAnswer) {
  testing_support::ScriptedHost host;
  int told = 0;
  for (const char* name :
       {"Viaturas", "Motoristas", "Gastos", "Seguros", "Revisoes", "Inspecoes", "Multas"}) {
    const auto ficha = zorCrmParvel::FormCatalog::Shared().Make(name);
    ficha->mybd = bd();
    ficha->Load();
    for (platform::Control* control : ficha->Controls()) {
      auto* field = dynamic_cast<platform::zor_input*>(control);
      if (field == nullptr) continue;
      field->SetFocus();
      if (ficha->ActiveControl() != field) continue;
      SCOPED_TRACE(std::string(name) + " " + std::to_string(field->Index()) + " " + desktop::HintFor(field));
      const bool opens = desktop::HintFor(field).find("F4 ficha") != std::string::npos;
      if (opens) host.NextForm([](platform::Form&) {});
      ficha->UserKey(platform::kKeyF4);
      told += opens ? 1 : 0;
      const bool lists = desktop::HintFor(field).find("F3 ") != std::string::npos;
      const std::size_t before = host.lookups.size();
      if (!lists) continue;
      host.NextLookup("");
      ficha->UserKey(platform::kKeyF3);
      EXPECT_EQ(host.lookups.size(), before + 1);
    }
  }
  EXPECT_GE(told, 15);
}

}  // namespace
}  // namespace desktop_test
