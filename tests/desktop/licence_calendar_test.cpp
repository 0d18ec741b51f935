// The calendar of a driver's licence classes, by the keyboard.
#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QLineEdit>
#include <QTest>

#include "desktop/form_dialog.h"
#include "desktop/table_view.h"
#include "drivers/motoristas_form.h"
#include "support/engine_tables.h"
#include "support/fleet.h"
#include "user.h"

namespace desktop_test {
namespace {

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
