#include <QAction>
#include <QMenu>
#include <QTableWidget>

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
  static QString Line(const QTableWidget& table, int row) {
    QStringList cells;
    for (int i = 0; i < table.columnCount(); ++i)
      cells << (table.item(row, i) != nullptr ? table.item(row, i)->text() : QString());
    return cells.join('|');
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
  window.workspace()->reader().Finish();
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
  QString shown;
  desk.script.Next([&](QWidget& box) {
    shown = Line(*box.findChild<QTableWidget*>(), 0);
    ClickButton(box, "Deixar como está");
  });
  undo.trigger();
  EXPECT_EQ(shown.toStdString(), "Marcas REN|Nome|De fora|Renault");
  EXPECT_EQ(last(), "De fora");
  desk.script.Next([](QWidget& box) { ClickButton(box, "Anular mesmo assim"); });
  undo.trigger();
  EXPECT_EQ(last(), "Renault");
}

TEST_F(HistoryTest, ThePageShowsWhatWasDoneAndUndoesIt) {
  window.ShowList("Marcas");
  Confirm("REN", "Renault");
  Confirm("REN", "Renault 2");
  window.ShowList("Historico");
  desktop::Page& page = *window.shown();
  auto& detail = *page.findChild<QTableWidget*>();
  desktop::BackgroundReader& reader = window.workspace()->reader();
  reader.Finish();
  EXPECT_EQ(Line(detail, 0).toStdString(), "Marcas REN|Nome: Renault → Renault 2");
  EXPECT_EQ(page.CountText(), QStringLiteral("2 operações"));
  page.Search("nada disto");
  reader.Finish();
  EXPECT_EQ(page.CountText(), QStringLiteral("0 operações"));
  page.Search("REN");
  reader.Finish();
  desk.script.Answer("Sim");
  ClickButton(page, "Anular…");
  EXPECT_EQ(Brands(), (testing_support::Table{{"REN", "Renault"}}));
  reader.Finish();
  EXPECT_EQ(page.CountText(), QStringLiteral("3 operações"));
}

TEST_F(HistoryTest, WhatWasWrittenOverIsToldAndPutBack) {
  window.ShowList("Marcas");
  Confirm("REN", "Renault");
  desk.script.Next([&](QWidget& ficha) {
    Type(ficha, "REN");
    Press(ficha, Qt::Key_Return);
    history::Options rui;
    rui.who = {"rui", "posto 2"};
    {
      // As another window does it: in this database there is but one connection.
      const auto other = std::make_shared<history::KeepingStore>(window.workspace()->store(), rui);
      other->ExecutarSql("", "UPDATE zor_PV_Marcas SET Nome = N'De Rui' WHERE Codigo = 'REN'");
    }
    Type(ficha, "Meu");
    desk.script.Next([&](QWidget& told) {
      EXPECT_EQ(Line(*told.findChild<QTableWidget*>(), 0).section('|', 0, 2).toStdString(),
                "Marcas REN|Nome|De Rui");
      ClickButton(told, "Repor o valor de rui");
      ClickButton(told, "Fechar");
    });
    ClickButton(ficha, "Confirmar");
    ClickButton(ficha, "Sair");
  });
  window.page()->New();
  EXPECT_EQ(Brands(), (testing_support::Table{{"REN", "De Rui"}}));
}

}  // namespace
}  // namespace desktop_test
