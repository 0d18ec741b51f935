#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include "desktop/ficha/form_dialog.h"
#include "desktop/ficha/picture_view.h"
#include "desktop/list/table_view.h"
#include "drivers/motoristas_form.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"
#include "user.h"

namespace desktop_test {
namespace {

/// A form with a code above two tabs: events with their details, and notes with a picture and files.
class TabsForm : public platform::Form {
 public:
  TabsForm() {
    Name = "Separadores";
    code.Validate = [this](bool& cancel) { cancel = code.Text.empty(); };
    tabs.Captions = {"Gastos", "Obs"};
    tabs.Click = [this](int) { ShowFrame(); };
    for (platform::Control* control :
         {static_cast<platform::Control*>(&events), static_cast<platform::Control*>(&cost)})
      control->Container = &frames[0];
    for (platform::Control* control :
         {static_cast<platform::Control*>(&notes), static_cast<platform::Control*>(&files)})
      control->Container = &frames[1];
    events.AddColumn("Tipo", "Tipo", 1500);
    events.AddColumn("Custo", "Custo", 1000).format = "#,##0.00";
    events.AddColumn("Id", "Id", 500).hidden = true;
    events.SetRowCount(3);
    for (int row = 0; row < 3; ++row) {
      events.SetCell(row, "Tipo", "Gasto " + std::to_string(row));
      events.SetCell(row, "Custo", platform::Currency::Parse("1234,5"));
    }
    events.RowChange = [this](long row) { cost.Text = "linha " + std::to_string(row); };
    events.DoubleClick = [this](long row) { opened = row; };
    events.ValidateEdit = [](long, const std::string& text, bool& cancel) { cancel = text == "mau"; };
    cost.Enabled = false;
    notes.tipo_campo = 1;
    files.SetFormatString("<Ficheiro");
    files.SetRows(3);
    files.SetTextMatrix(1, 0, "a.pdf");
    files.SetTextMatrix(2, 0, "b.pdf");
    files.Click = [this] { clicked = files.TextMatrix(files.Row, 0); };
    layout.head.rows = {{{.field = &code}}};
    layout.tabs = &tabs;
    layout.pages.resize(2);
    layout.pages[0].grid = &events;
    layout.pages[0].rows = {{{.field = &cost}}};
    layout.pages[1].grid = &files;
    layout.pages[1].picture = &picture;
    layout.pages[1].rows = {{{.field = &notes}}};
    ShowFrame();
    Load();
  }

  void ShowFrame() {
    frames[0].Visible = tabs.Tab == 0;
    frames[1].Visible = tabs.Tab == 1;
  }

  platform::zor_input code{*this, "Campo", 0};
  platform::TabControl tabs{*this, "SSTab1"};
  platform::ControlArray<platform::Frame> frames{*this, "Frame", 2};
  platform::SGGrid events{*this, "Grelha"};
  platform::zor_input cost{*this, "Campo", 1};
  platform::MSFlexGrid files{*this, "Ficheiros"};
  platform::zor_input notes{*this, "Campo", 2};
  platform::ShowImg picture{*this, "ShowImg1"};
  long opened = -1;
  std::string clicked;
};

class FormTabsTest : public testing::Test {
 protected:
  FormTabsTest() {
    dialog.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
  }

  void ClickTab(int index) {
    QTabBar* bar = dialog.findChild<QTabBar*>();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
  }
  desktop::TableView& Table(const platform::Control& control) {
    return *qobject_cast<desktop::TableView*>(dialog.WidgetOf(control));
  }
  QPoint Cell(desktop::TableView& table, int row, int column) {
    return table.visualRect(table.model()->index(row, column)).center();
  }
  void FillCode() {
    Type(dialog, "x");
    Press(dialog, Qt::Key_Tab);
  }

  Desk desk;
  TabsForm form;
  desktop::FormDialog dialog{form, desk.settings, nullptr};
};

TEST_F(FormTabsTest, ATabIsTurnedToWhenTheFieldLetsGoAndTheWindowKeepsItsSize) {
  const QSize size = dialog.size();
  ClickTab(1);
  EXPECT_EQ(form.tabs.Tab, 0);
  EXPECT_EQ(dialog.findChild<QTabWidget*>()->currentIndex(), 0);
  FillCode();
  ClickTab(1);
  EXPECT_EQ(form.tabs.Tab, 1);
  EXPECT_TRUE(dialog.WidgetOf(form.notes)->isVisible());
  EXPECT_FALSE(dialog.WidgetOf(form.events)->isVisible());
  EXPECT_EQ(dialog.size(), size);
  Press(dialog, Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(form.tabs.Tab, 0);
}

TEST_F(FormTabsTest, AGridTellsTheFormItsRowAndShowsMaskedNumbersAtTheRight) {
  FillCode();
  desktop::TableView& table = Table(form.events);
  EXPECT_TRUE(table.isColumnHidden(2));
  EXPECT_EQ(table.model()->index(0, 1).data(), "1.234,50");
  EXPECT_TRUE(table.model()->index(0, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignRight);
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, Cell(table, 1, 0));
  EXPECT_EQ(form.events.Row(), 1);
  EXPECT_EQ(qobject_cast<QLineEdit*>(dialog.WidgetOf(form.cost))->text(), "linha 1");
  Press(dialog, Qt::Key_Down);
  EXPECT_EQ(form.events.Row(), 2);
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, Cell(table, 2, 0));
  QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, Cell(table, 2, 0));
  EXPECT_EQ(form.opened, 2);
}

TEST_F(FormTabsTest, AnEditableColumnTakesWhatTheFormAccepts) {
  form.events.EditableColumn = "Tipo";
  form.events.SetCell(0, "Tipo", "Gasto 0");  // a change, so that the grid is drawn anew
  FillCode();
  desktop::TableView& table = Table(form.events);
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, Cell(table, 0, 1));  // beside the column
  for (const auto& [text, kept] : {std::pair{"novo", "novo"}, {"mau", "novo"}}) {
    SCOPED_TRACE(text);
    QTest::keyClick(&table, Qt::Key_F2);
    auto* editor = table.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.ActiveControl(), &form.events);
    EXPECT_EQ(form.events.CellText(0, 0), kept);
    EXPECT_EQ(table.model()->index(0, 0).data(), kept);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

TEST_F(FormTabsTest, AGridShowsItsMenuAndRunsItsKeysOnTheChosenRow) {
  platform::PopUpMenu commands;
  commands.Add(701, "&Renomear").key = platform::kKeyF2;
  commands.Add(702, "&Apagar").key = platform::kKeyDelete;
  commands.Add(703, "Oculto").visible = false;
  QStringList run;
  form.events.PopUp = &commands;
  form.events.PopUpCommand = [&](long command) {
    run << QString("%1:%2").arg(form.events.Row()).arg(command);
  };
  FillCode();
  desktop::TableView& table = Table(form.events);
  QTest::mouseClick(table.viewport(), Qt::RightButton, {}, Cell(table, 1, 0));
  Q_EMIT table.customContextMenuRequested(Cell(table, 1, 0));
  auto* menu = table.findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  QStringList entries;
  for (const QAction* action : menu->actions()) entries << action->text();
  EXPECT_EQ(entries, (QStringList{"&Renomear\tF2", "&Apagar\tDel"}));
  QTest::keyClick(menu, Qt::Key_A);
  Press(dialog, Qt::Key_End);
  Press(dialog, Qt::Key_F2);
  Press(dialog, Qt::Key_Home);
  Press(dialog, Qt::Key_Delete);
  EXPECT_EQ(run, (QStringList{"1:702", "2:701", "0:702"}));
}

TEST_F(FormTabsTest, ThePlainGridPicturesAndNotesFollowTheForm) {
  FillCode();
  ClickTab(1);
  desktop::TableView& table = Table(form.files);
  EXPECT_EQ(table.model()->headerData(0, Qt::Horizontal, Qt::DisplayRole), "Ficheiro");
  EXPECT_EQ(table.model()->rowCount(), 2);
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, Cell(table, 1, 0));
  EXPECT_EQ(form.clicked, "b.pdf");
  EXPECT_EQ(form.files.Row, 2);

  const QString file = desk.folder.filePath("foto.png");
  QImage image(40, 40, QImage::Format_RGB32);
  image.fill(Qt::green);
  ASSERT_TRUE(image.save(file));
  form.picture.FileName = file.toStdString();
  form.picture.Load();
  dialog.Sync();
  QWidget* frame = dialog.WidgetOf(form.picture);
  EXPECT_TRUE(QSignalSpy(qobject_cast<desktop::PictureFrame*>(frame), &desktop::PictureFrame::Loaded).wait());
  EXPECT_EQ(frame->grab().toImage().pixelColor(frame->rect().center()), QColor(Qt::green));

  Click(*qobject_cast<QAbstractScrollArea*>(dialog.WidgetOf(form.notes))->viewport());
  Type(dialog, "uma");
  Press(dialog, Qt::Key_Return, Qt::ControlModifier);
  Type(dialog, "duas");
  EXPECT_EQ(form.notes.Text, "uma\nduas");
  Press(dialog, Qt::Key_Return);
  EXPECT_NE(form.ActiveControl(), &form.notes);
}

TEST(LicenceCalendarTest, ArrowsAndEnterFillTheRowThatItServes) {
  Desk desk;
  const zorCrmParvel::DataAccessRef bd = testing_support::MemoryDatabase();
  testing_support::AddDriver(bd, "1", "Ana");
  zorCrmParvel::Motoristas form;
  form.mybd = bd;
  form.Load();
  form.CarregaFicha("1");
  desktop::FormDialog dialog(form, desk.settings, nullptr);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  Press(dialog, Qt::Key_PageDown, Qt::ControlModifier);
  const QSize size = dialog.minimumSizeHint();
  for (int i = 0; form.ActiveControl() != &form.Grelha && i < 9; ++i) Press(dialog, Qt::Key_Tab);
  Press(dialog, Qt::Key_Down);
  ASSERT_EQ(form.Grelha.Row(), 1);
  EXPECT_TRUE(dialog.findChild<QCalendarWidget*>()->isVisible());
  EXPECT_EQ(dialog.minimumSizeHint(), size);
  Press(dialog, Qt::Key_Return);
  for (Qt::Key key : {Qt::Key_Right, Qt::Key_Down}) Press(dialog, key);
  Press(dialog, Qt::Key_Return);
  EXPECT_EQ(form.Grelha.CellValue(1, 1).ToDate(), platform::Today().AddDays(8));
  EXPECT_FALSE(dialog.findChild<QCalendarWidget*>()->isVisible());
  ASSERT_TRUE(dialog.WidgetOf(form.Grelha)->hasFocus());
  auto& table = *qobject_cast<desktop::TableView*>(dialog.WidgetOf(form.Grelha));
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(table.currentIndex()).center());
  EXPECT_TRUE(dialog.findChild<QCalendarWidget*>()->isVisible()) << "a click on the same row";
  Type(dialog, "0");
  EXPECT_NE(table.findChild<QLineEdit*>(), nullptr) << "typing begins in the date";
}

}  // namespace
}  // namespace desktop_test
