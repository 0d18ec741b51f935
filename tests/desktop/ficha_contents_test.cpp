#include "desktop/ficha/ficha_contents.h"

#include "desktop/ficha/form_dialog.h"
#include "masterdata/code_table.h"
#include "open_window.h"
#include "support/fleet.h"

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

}  // namespace
}  // namespace desktop_test
