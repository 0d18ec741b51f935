#include <QAction>
#include <QMenu>

#include "desktop/shell/main_actions.h"
#include "masterdata/code_table.h"
#include "open_window.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"

namespace desktop_test {
namespace {

class HistoryTest : public OpenWindow {
 protected:
  testing_support::Table Brands() {
    return testing_support::Rows(bd(), "SELECT Codigo, Nome FROM zor_PV_Marcas ORDER BY Codigo");
  }
  /// In the ficha that opens next.
  void Confirm(const char* code, const char* name) {
    desk.script.Next([=](QWidget& ficha) {
      Type(ficha, code);
      Press(ficha, Qt::Key_Return);
      Type(ficha, name);
      ClickButton(ficha, "Confirmar");
      ClickButton(ficha, "Sair");
    });
    window.page()->New();
  }
};

TEST_F(HistoryTest, WhatWasConfirmedAndRemovedIsUndoneStepByStepAndNamed) {
  window.ShowList("Marcas");
  Confirm("REN", "Renault");
  Confirm("REN", "Renault 2");
  const testing_support::Table before = Brands();
  desk.script.Answer("Sim");
  window.page()->Remove();
  EXPECT_TRUE(Brands().empty());
  QMetaObject::invokeMethod(window.actions().record_menu, "aboutToShow");
  EXPECT_EQ(window.actions().undo->text().toStdString(), "A&nular: Marcas: Remover, REN");
  window.actions().undo->trigger();
  EXPECT_EQ(Brands(), before);
  window.actions().undo->trigger();
  EXPECT_EQ(Brands(), (testing_support::Table{{"REN", "Renault"}}));
  window.actions().undo->trigger();
  EXPECT_TRUE(Brands().empty());
}

TEST_F(HistoryTest, WhatSomebodyChangedSinceIsAskedFor) {
  window.ShowList("Marcas");
  Confirm("REN", "Renault");
  Confirm("REN", "Renault 2");
  bd()->ExecutarSql("", "UPDATE zor_PV_Marcas SET Nome=N'De outro' WHERE Codigo='REN'");
  const auto last = [&] { return Brands().at(0).at(1); };
  QAction& undo = *window.actions().undo;
  undo.trigger();  // the update
  EXPECT_EQ(last(), "Renault 2");
  window.workspace()->store()->ExecutarSql("", "UPDATE zor_PV_Marcas SET Nome=N'De fora' WHERE Codigo='REN'");
  desk.script.Answer("Não");
  undo.trigger();
  EXPECT_TRUE(desk.script.boxes.last().contains("agora «De fora», ficaria «Renault»"))
      << desk.script.boxes.last().toStdString();
  EXPECT_EQ(last(), "De fora");
  desk.script.Answer("Sim");
  undo.trigger();
  EXPECT_EQ(last(), "Renault");
}

}  // namespace
}  // namespace desktop_test
