#include "desktop/list/list_page.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <tuple>

#include "desktop/list/tools/choice_dialog.h"
#include "desktop/list/tools/filter_bar.h"
#include "desktop/list/tools/vehicle_field_dialog.h"
#include "desktop/list/tools/view_dialog.h"
#include "desktop/print/report_dialog.h"
#include "desktop/shell/main_actions.h"
#include "desktop/shell/sidebar.h"
#include "events/gastos.h"
#include "host/sistema.h"
#include "masterdata/code_table.h"
#include "open_window.h"
#include "pdf.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"

namespace desktop_test {
namespace {

using desktop::ListPage;
using platform::Date;

class ListPagesTest : public OpenWindow {
 protected:
  ListPagesTest() {
    testing_support::AddFleet(bd(), 10000);
    testing_support::AddVehicle(bd(), "99-ZZ-99");
    const std::tuple<const char*, int, const char*, const char*> expenses[] = {
        {"12-AB-34", 1, "GASOLEO", "50"},
        {"99-ZZ-99", 3, "GASOLEO", "80,5"},
        {"12-AB-34", 2, "PORTAGEM", "4"}};
    for (const auto& [plate, day, type, cost] : expenses)
      testing_support::AddExpense(bd(), plate, Date::FromParts(2026, 10, day), type, "10", cost, 0);
    window.ShowList("Gastos");
  }
  ListPage& page() { return *window.page(); }
  desktop::TableView& table() { return page().table(); }
  int Column(const char* key) { return static_cast<int>(*table().grid().source().FindColumn(key)); }
  /// The texts of a column from top to bottom.
  QString Shown(const char* key) {
    QStringList texts;
    for (int row = 0; row < table().model()->rowCount(); ++row)
      texts << table().model()->index(row, Column(key)).data().toString();
    return texts.join(" ");
  }
  void Choose(QMenu& menu, const QString& text) {
    Q_EMIT menu.aboutToShow();
    for (QAction* action : menu.actions())
      if (action->text().remove('&') == text) return action->trigger();
    ADD_FAILURE() << "no command " << text.toStdString();
  }
};

TEST_F(ListPagesTest, NewestFirstWithWhatARowIsWorthAndWhatAllComeTo) {
  EXPECT_EQ(Shown("Custo"), "80,50 4,00 50,00");
  EXPECT_EQ(Shown("Motorista"), "Ana Ana Ana");
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return page().FooterText().contains("Custo: soma 134,50, média 44,83"); }));
  table().selectAll();
  EXPECT_TRUE(QTest::qWaitFor([&] { return page().FooterText().startsWith("Dos 3 seleccionados"); }));
}

TEST_F(ListPagesTest, FiltersAreTypedUnderTheHeadingsSeenAndTakenAwayWithOneKey) {
  window.actions().filter->trigger();
  auto& header = table().filters();
  QTest::keyClicks(header.FieldOf(Column("Custo")), "> 10");
  EXPECT_EQ(Shown("Custo"), "80,50 50,00");
  EXPECT_EQ(page().filter_bar().Summary(), "Só Custo: > 10");
  EXPECT_TRUE(page().CountText().startsWith("2 de 3")) << page().CountText().toStdString();
  QTest::keyClicks(header.FieldOf(Column("Matricula")), "zz99");
  EXPECT_EQ(Shown("Custo"), "80,50");
  EXPECT_EQ(page().filter_bar().Summary(), "Só Custo: > 10") << "the plate stands on its button";
  QTest::keyClicks(header.FieldOf(Column("Matricula")), "x");
  EXPECT_EQ(Shown("Custo"), "");
  EXPECT_TRUE(table().isVisible()) << "the fields stay";
  QTest::keyClick(header.FieldOf(Column("Matricula")), Qt::Key_Escape);
  EXPECT_EQ(Shown("Custo"), "80,50 4,00 50,00");
  EXPECT_EQ(page().filter_bar().Summary(), "");

  desk.script.Next([](QWidget& shown) {
    auto& choice = dynamic_cast<desktop::ChoiceDialog&>(shown);
    ASSERT_EQ(choice.list()->count(), 2);
    EXPECT_EQ(choice.list()->item(1)->text(), "Portagens  (1)");
    choice.list()->item(1)->setCheckState(Qt::Checked);
    choice.accept();
  });
  QTest::keyClick(header.FieldOf(Column("TpGasto")), Qt::Key_F3);
  EXPECT_EQ(Shown("Custo"), "4,00");
  QTest::keyClick(&table(), Qt::Key_Escape);
  EXPECT_EQ(table().model()->rowCount(), 3);
  QTest::keyClicks(header.FieldOf(Column("Matricula")), "zz99");
  EXPECT_EQ(table().model()->rowCount(), 1);
  QTest::keyClick(page().filter_bar().findChild<QToolButton*>(), Qt::Key_Escape);
  EXPECT_EQ(table().model()->rowCount(), 3) << "on a button as in the rows";
}

TEST_F(ListPagesTest, ColumnsAreHiddenMovedGroupedAndRemembered) {
  table().setCurrentIndex(table().model()->index(0, Column("Matricula")));
  Choose(*window.actions().columns_menu, "Agrupar por «Matrícula»");
  EXPECT_EQ(Shown("Custo"), "54,00 80,50");
  EXPECT_TRUE(Shown("Matricula").contains("12-AB-34 (2)"));
  table().setCurrentIndex(table().model()->index(0, Column("Matricula")));
  Press(window, Qt::Key_Return);
  EXPECT_EQ(Shown("Custo"), "54,00 4,00 50,00 80,50");
  page().Search("gasoleo");
  const QString file = desk.folder.filePath("lista.pdf");
  desk.script.Next(
      [&](QWidget& report) { EXPECT_TRUE(dynamic_cast<desktop::ReportDialog&>(report).WritePdf(file)); });
  window.actions().print->trigger();
  const QString paper = PdfText(file).simplified();
  for (const char* text : {"Só «gasoleo»", "Agrupado por Matrícula", "12-AB-34 (1)", "99-ZZ-99 (1)",
                           "Total (2)", "130,50", "2 registos"})
    EXPECT_TRUE(paper.contains(text)) << text << " in " << paper.toStdString();
  EXPECT_EQ(paper.count("50,00"), 2) << "of the open group its row as well";
  EXPECT_EQ(paper.count("80,50"), 1);
  page().Search({});
  table().setCurrentIndex(table().model()->index(1, Column("Km")));
  Choose(*window.actions().columns_menu, "Esconder «Km»");
  EXPECT_TRUE(table().isColumnHidden(Column("Km")));
  Choose(*window.actions().columns_menu, "Departamento");
  EXPECT_FALSE(table().isColumnHidden(Column("Departamento")));
  desk.script.Next([](QWidget& dialog) {
    Type(dialog, "Por viatura");
    dynamic_cast<desktop::ViewDialog&>(dialog).accept();
  });
  Choose(*window.actions().views_menu, "Guardar vista…");
  Choose(*window.actions().columns_menu, "Repor colunas");
  EXPECT_FALSE(table().isColumnHidden(Column("Km")));
  auto& side = *window.findChild<desktop::Sidebar*>();
  side.setFocus();
  QStringList passed;
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}) {
    Press(window, key);
    passed << side.currentItem()->text();
  }
  EXPECT_EQ(passed.join(", ").toStdString(), "Início, Por viatura, Viaturas, Por viatura");
  ASSERT_STREQ(page().entry().key, "Gastos");
  EXPECT_TRUE(table().isColumnHidden(Column("Km")));
  EXPECT_EQ(Shown("Custo"), "54,00 80,50");
}

TEST_F(ListPagesTest, SeveralAreRemovedAfterOneQuestionAndComeBackTogether) {
  table().selectAll();
  desk.script.Answer("Sim");
  window.actions().remove->trigger();
  ASSERT_EQ(desk.script.boxes.size(), 1);
  EXPECT_TRUE(desk.script.boxes[0].contains("Remover estes 3 registos de Gastos?"));
  EXPECT_TRUE(desk.script.boxes[0].contains("99-ZZ-99"));
  EXPECT_EQ(table().model()->rowCount(), 0);
  window.actions().undo->trigger();
  EXPECT_EQ(table().model()->rowCount(), 3);
  for (const int left : {1, 0}) {  // what follows takes the place, and the last where nothing does
    table().GoToPlace(1);
    desk.script.Answer("Sim");
    window.actions().remove->trigger();
    EXPECT_EQ(table().model()->rowCount(), left + 1);
    EXPECT_EQ(table().currentIndex().row(), left);
  }
}

TEST_F(ListPagesTest, AFieldOfManyVehiclesIsSetAsOneAct) {
  testing_support::AddCode<zorCrmParvel::clDepartamentos>(bd(), "COM", "Comercial");
  window.ShowList("Viaturas");
  table().selectAll();
  desk.script.Next([](QWidget& shown) {
    auto& dialog = dynamic_cast<desktop::VehicleFieldDialog&>(shown);
    ASSERT_EQ(dialog.Vehicles().size(), 2U);
    QPushButton* change = nullptr;
    for (auto* button : dialog.findChildren<QPushButton*>())
      if (button->isDefault()) change = button;
    EXPECT_FALSE(change->isEnabled()) << "Enter alone takes no value away";
    dialog.value()->setCurrentIndex(1);
    EXPECT_TRUE(change->isEnabled());
    EXPECT_EQ(dialog.Value(), "COM");
    dialog.accept();
  });
  for (QAction* action : page().own_commands())
    if (action->text().contains("campo")) action->trigger();
  EXPECT_EQ(Shown("Departamento"), "Comercial Comercial");
  window.actions().undo->trigger();
  EXPECT_EQ(Shown("Departamento").trimmed(), "");
}

/// What the menu says that comes up while `press` is done.
QStringList MenuShownBy(const std::function<void()>& press) {
  QStringList shown;
  QTimer::singleShot(0, [&shown] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return;
    for (const QAction* action : menu->actions()) shown << action->text().remove('&');
    menu->close();
  });
  press();
  QCoreApplication::processEvents();
  return shown;
}

TEST_F(ListPagesTest, TheKeyboardOpensTheMenusOfRowsAndHeadings) {
  page().TakeFocus();
  const auto press = [this] { Press(window, Qt::Key_F10, Qt::ShiftModifier); };
  EXPECT_TRUE(MenuShownBy(press).join("|").startsWith("Novo|Editar|Remover"));
  page().GoToFilters();
  EXPECT_TRUE(MenuShownBy(press).join("|").contains("Esconder"))
      << MenuShownBy(press).join("|").toStdString();
}

TEST_F(ListPagesTest, TheMenuOfColumnsSortsByTheCurrentOneWhichStaysCurrent) {
  table().setCurrentIndex(table().model()->index(2, Column("Custo")));
  const std::pair<const char*, const char*> orders[] = {{"Ordenar por «Custo»", "4,00 50,00 80,50"},
                                                        {"Ordenar ao contrário", "80,50 50,00 4,00"}};
  for (const auto& [command, costs] : orders) {
    Choose(*window.actions().columns_menu, command);
    EXPECT_EQ(Shown("Custo").toStdString(), costs) << command;
    EXPECT_EQ(table().currentIndex().column(), Column("Custo"));
  }
  Choose(*window.actions().columns_menu, "Ordem da lista");
  EXPECT_FALSE(table().grid().order().sort());
}

TEST_F(ListPagesTest, EnterPressesTheButtonThatHasTheKeyboard) {
  desk.script.Next([](QWidget& shown) {
    auto& dialog = dynamic_cast<desktop::ChoiceDialog&>(shown);
    for (auto* button : dialog.findChildren<QPushButton*>())
      if (!button->isDefault()) button->setFocus();
    Press(dialog, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_FALSE(dialog.isVisible());
  });
  page().GoToFilters();
  Press(window, Qt::Key_F3);
}

TEST_F(ListPagesTest, TypedLettersGoToTheRow) {
  window.ShowList("Viaturas");
  table().setFocus();
  QTest::keyClicks(&table(), "99z");
  EXPECT_EQ(table().currentIndex().row(), 1);
}

}  // namespace
}  // namespace desktop_test
