#include "desktop/shell/main_window.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QToolTip>

#include "desktop/list/csv.h"
#include "desktop/list/table_export.h"
#include "desktop/print/report_dialog.h"
#include "desktop/shell/main_actions.h"
#include "desktop/shell/message_page.h"
#include "exchange/table/table_reader.h"
#include "masterdata/code_table.h"
#include "open_window.h"
#include "pdf.h"
#include "support/files.h"
#include "support/fleet.h"

namespace desktop_test {
namespace {

using desktop::ListPage;
using desktop::MainWindow;
using desktop::MessagePage;
using desktop::Workspace;

class MainWindowTest : public OpenWindow {
 protected:
  void AddBrands() {
    for (const auto& [code, name] :
         {std::pair{"REN", "Renault"}, {"CIT", "Citroën"}, {"MB", "Mercedes-Benz"}})
      testing_support::AddCode<zorCrmParvel::clMarcas>(bd(), code, name);
    window.ShowList("Marcas");
    window.page()->Load();
  }

  ListPage& page() { return *window.page(); }
  QStringList Codes() {
    QStringList codes;
    const auto* model = page().table().model();
    for (int row = 0; row < model->rowCount(); ++row) codes << model->index(row, 0).data().toString();
    return codes;
  }
  QString Chosen() { return page().table().currentIndex().siblingAtColumn(0).data().toString(); }
  MessagePage& Message() { return *page().findChild<MessagePage*>(); }
  /// Types a brand into its ficha, confirms it and leaves.
  static void EnterBrand(QWidget& ficha, const QString& code, const QString& name) {
    Type(ficha, code);
    Press(ficha, Qt::Key_Return);
    Type(ficha, name);
    ClickButton(ficha, "Confirmar");
    ClickButton(ficha, "Sair");
  }
  void ClickHeading(int column) {
    QHeaderView* header = page().table().horizontalHeader();
    QTest::mouseClick(
        header->viewport(), Qt::LeftButton, {},
        {header->sectionViewportPosition(column) + header->sectionSize(column) / 2, header->height() / 2});
  }
};

TEST_F(MainWindowTest, AListShowsItsRowsTheirNumberAndItsName) {
  AddBrands();
  EXPECT_EQ(Codes(), (QStringList{"CIT", "MB", "REN"}));
  EXPECT_EQ(page().CountText(), "3 registos · 1 seleccionado");
  EXPECT_TRUE(window.windowTitle().startsWith("Marcas"));
  EXPECT_TRUE(page().table().hasFocus());
  const auto name_of = [](QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
  };
  EXPECT_EQ(name_of(&page().table()), "Marcas");
  EXPECT_EQ(name_of(window.actions().search), "Procurar na lista");
}

TEST_F(MainWindowTest, AnEmptyListOffersTheFirstRecordWhichItsFichaMakes) {
  window.ShowList("Marcas");
  EXPECT_EQ(Message().Headline(), "A lista está vazia.");
  ASSERT_TRUE(Message().button()->isVisible());
  desk.script.Next([](QWidget& ficha) { EnterBrand(ficha, "OPEL", "Opel"); });
  Click(*Message().button());
  EXPECT_EQ(Codes(), QStringList{"OPEL"});
  EXPECT_TRUE(page().table().isVisible());
}

TEST_F(MainWindowTest, AnApostropheIsRefusedWithAdviceAndTheFichaGoesOn) {
  window.ShowList("Marcas");
  desk.script.Next([this](QWidget& ficha) {
    desk.script.Answer("OK");
    Type(ficha, "O'P");
    Press(ficha, Qt::Key_Return);
    Press(ficha, Qt::Key_A, Qt::ControlModifier);
    EnterBrand(ficha, "OP", "Opel");
  });
  window.actions().add->trigger();
  ASSERT_EQ(desk.script.boxes.size(), 1);
  EXPECT_TRUE(desk.script.boxes[0].contains("apóstrofos")) << desk.script.boxes[0].toStdString();
  EXPECT_EQ(Codes(), QStringList{"OP"});
}

TEST_F(MainWindowTest, EnterEditsTheChosenRecordAndKeepsItChosen) {
  AddBrands();
  Press(window, Qt::Key_Down);
  ASSERT_EQ(Chosen(), "MB");
  desk.script.Next([](QWidget& ficha) {
    Press(ficha, Qt::Key_Return);
    Press(ficha, Qt::Key_A, Qt::ControlModifier);
    Type(ficha, "Mercedes");
    ClickButton(ficha, "Confirmar");
    ClickButton(ficha, "Sair");
  });
  Press(window, Qt::Key_Return);
  EXPECT_EQ(Chosen(), "MB");
  EXPECT_EQ(page().table().currentIndex().siblingAtColumn(1).data(), "Mercedes");
}

TEST_F(MainWindowTest, HomeEndAndLettersMoveInTheListsAndBesideThem) {
  QApplication::setKeyboardInputInterval(1);  // milliseconds, so that each letter is a search of its own
  AddBrands();
  for (const auto& [key, code] :
       {std::pair{Qt::Key_End, "REN"}, {Qt::Key_Home, "CIT"}, {Qt::Key_M, "MB"}, {Qt::Key_R, "REN"}}) {
    QTest::qWait(5);
    Press(window, key);
    EXPECT_EQ(Chosen(), code);
  }
  Press(window, Qt::Key_F6);
  auto* side = window.findChild<QListWidget*>();
  ASSERT_TRUE(side->hasFocus());
  for (const auto& [key, title] : {std::pair{Qt::Key_Home, "Início"},
                                   {Qt::Key_Down, "Viaturas"},
                                   {Qt::Key_Up, "Início"},
                                   {Qt::Key_M, "Motoristas"},
                                   {Qt::Key_Down, "Gastos"},
                                   {Qt::Key_T, "Tacógrafos"},
                                   {Qt::Key_End, "Histórico"}}) {
    QTest::qWait(5);
    Press(window, key);
    EXPECT_EQ(side->currentItem()->text(), title);
  }
}

TEST_F(MainWindowTest, RemovingAsksByNameAndGoesOnToTheNextRecord) {
  AddBrands();
  Press(window, Qt::Key_Down);
  desk.script.Answer("Não");
  Press(window, Qt::Key_Delete);
  EXPECT_TRUE(desk.script.boxes[0].contains("MB – Mercedes-Benz")) << desk.script.boxes[0].toStdString();
  EXPECT_EQ(Codes().size(), 3);
  desk.script.Answer("Sim");
  Press(window, Qt::Key_Delete);
  EXPECT_EQ(Codes(), (QStringList{"CIT", "REN"}));
  EXPECT_EQ(Chosen(), "REN");
}

TEST_F(MainWindowTest, SearchingNarrowsWhileTypingAndEscapeGivesTheRowsBack) {
  AddBrands();
  window.actions().find->trigger();
  Type(window, "mercedes b");
  EXPECT_EQ(Codes(), QStringList{"MB"});
  EXPECT_EQ(page().CountText(), "1 de 3 · 1 seleccionado");
  Type(window, "x");
  EXPECT_TRUE(Message().Headline().contains("Nenhum registo"));
  Press(window, Qt::Key_Escape);
  EXPECT_EQ(Codes().size(), 3);
  EXPECT_TRUE(page().table().hasFocus());
}

TEST_F(MainWindowTest, HeadingsSortTurnRoundAndRestore) {
  AddBrands();
  const QStringList ascending = Codes();
  for (const QStringList& codes : {ascending, {"REN", "MB", "CIT"}, ascending}) {
    ClickHeading(1);
    EXPECT_EQ(Codes(), codes);
    EXPECT_EQ(Chosen(), "CIT");
  }
}

TEST_F(MainWindowTest, ListSortSearchAndWidthsAreRemembered) {
  AddBrands();
  ClickHeading(1);
  ClickHeading(1);
  page().table().setColumnWidth(0, 222);
  window.actions().search->setText("r");
  const QStringList shown = Codes();
  auto workspace = std::make_unique<Workspace>(":memory:");
  workspace->FillDemo();
  MainWindow again(desk.settings);
  again.Open(std::move(workspace));
  ASSERT_STREQ(again.page()->entry().key, "Marcas");
  EXPECT_EQ(again.actions().search->text(), "r");
  EXPECT_EQ(again.page()->table().columnWidth(0), 222);
  const auto& sort = again.page()->table().grid().order().sort();
  ASSERT_TRUE(sort.has_value());
  EXPECT_EQ(*sort, (desktop::SortBy{1, desktop::SortDirection::kDescending}));
}

TEST_F(MainWindowTest, ThePointerAtRestShowsATextThatIsCut) {
  testing_support::AddCode<zorCrmParvel::clMarcas>(bd(), "<b>LONGO", "x");
  AddBrands();
  desktop::TableView& table = page().table();
  const auto tip = [&table](int row) {
    const QPoint place = table.visualRect(table.model()->index(row, 0)).center();
    QHelpEvent rest(QEvent::ToolTip, place, table.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(table.viewport(), &rest);
    return QToolTip::text();
  };
  EXPECT_EQ(tip(0), "");
  table.setColumnWidth(0, table.horizontalHeader()->minimumSectionSize());
  EXPECT_EQ(tip(0), "<qt>&lt;b&gt;LONGO</qt>");
}

TEST_F(MainWindowTest, PrintingAndExportingGiveTheRowsShown) {
  AddBrands();
  window.actions().search->setText("me");
  desk.script.Next([this](QWidget& report) {
    const QString file = desk.folder.filePath("marcas.pdf");
    ASSERT_TRUE(dynamic_cast<desktop::ReportDialog&>(report).WritePdf(file));
    const QString text = PdfText(file);
    for (const char* part : {"Marcas", "Designação", "Mercedes-Benz"})
      EXPECT_TRUE(text.contains(part)) << part << " in " << text.toStdString();
    EXPECT_FALSE(text.contains("Citroën"));
  });
  window.actions().print->trigger();

  const QString csv = desk.folder.filePath("marcas.csv");
  desktop::WriteCsv(csv, page().table().grid().source(), page().table().grid().order().Rows());
  EXPECT_EQ(testing_support::Contents(csv.toStdString()),
            "\xEF\xBB\xBF"
            "Código;Designação\r\nMB;Mercedes-Benz\r\n");

  window.actions().search->setText("");
  QTest::keySequence(&page().table(), QKeySequence::SelectAll);
  QTest::keySequence(&page().table(), QKeySequence::Copy);
  const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
  EXPECT_TRUE(copied->text().startsWith("Código\tDesignação\n")) << copied->text().toStdString();
  EXPECT_EQ(copied->text().count('\n'), 1 + page().table().grid().order().Count());
  EXPECT_TRUE(copied->html().contains("<td class=\"t\">Mercedes-Benz</td>"));
  const QString sheet = desk.folder.filePath("marcas.ods");
  desktop::ExportRows(sheet, page().table().grid().source(), page().table().grid().order().Rows(), "Marcas");
  EXPECT_EQ(exchange::OpenTable(sheet.toStdString())->Sheets()[0].name, "Marcas");
}

TEST_F(MainWindowTest, AWorkListOffersItsOwnCommandInsteadOfTheStandardOnes) {
  window.ShowList("Selo");
  EXPECT_FALSE(window.actions().add->isEnabled());
  EXPECT_FALSE(Message().button()->isVisible());
  Q_EMIT window.actions().record_menu->aboutToShow();
  QStringList commands;
  for (const QAction* action : window.actions().record_menu->actions()) commands << action->text();
  EXPECT_TRUE(commands.contains("Actualizar")) << commands.join(", ").toStdString();
  EXPECT_EQ(window.actions().reload->iconText(), "Recarregar") << "to read again is another thing";
}

TEST_F(MainWindowTest, ADatabaseThatIsGoneIsToldAndTheWindowGoesOn) {
  const QString file = desk.folder.filePath("frota.db");
  window.Open(std::make_unique<Workspace>(file.toStdString()));
  window.ShowList("Marcas");
  ASSERT_TRUE(QFile::remove(file));
  desk.script.Next([this](QWidget& ficha) {
    desk.script.Answer("OK");
    EnterBrand(ficha, "OPEL", "Opel");
  });
  window.actions().add->trigger();
  ASSERT_FALSE(desk.script.boxes.isEmpty());
  EXPECT_TRUE(desk.script.boxes[0].contains("já não está no seu lugar"))
      << desk.script.boxes[0].toStdString();
  window.actions().reload->trigger();
  EXPECT_TRUE(window.isEnabled());
}

TEST(ListPageTest, AListThatCannotBeReadSaysWhyInItsPlace) {
  Desk desk;
  Workspace without_database(":memory:");
  without_database.sistema().ICrmSistema_ZorDataAccess = {};
  ListPage page(without_database, *desktop::FindList("Marcas"), desk.settings, nullptr);
  const auto& message = *page.findChild<MessagePage*>();
  EXPECT_EQ(message.Headline(), "Não foi possível ler a lista.");
  EXPECT_TRUE(message.Details().contains("Marcas::Iniciar")) << message.Details().toStdString();
  EXPECT_FALSE(page.Can(desktop::kNewCommand));
  page.Load();
  EXPECT_EQ(message.Headline(), "Não foi possível ler a lista.");
}

}  // namespace
}  // namespace desktop_test
