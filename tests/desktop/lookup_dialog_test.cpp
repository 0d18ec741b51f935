#include "desktop/lookup_dialog.h"

#include <gtest/gtest.h>

#include "desktop/table_view.h"
#include "sample_form.h"
#include "user.h"

namespace desktop_test {
namespace {

/// The key that comes of a lookup which the user works like this.
std::string Chosen(platform::ListaPesquisa lookup, const std::function<void(QWidget&)>& user) {
  Desk desk;
  desk.script.Next(user);
  return lookup.Escolhe();
}

TEST(LookupDialogTest, EnterAndADoubleClickChooseAndEscapeDoesNot) {
  EXPECT_EQ(Chosen(DriverLookup(), [](QWidget& window) { Press(window, Qt::Key_Return); }), "0001");
  EXPECT_EQ(Chosen(DriverLookup(), [](QWidget& window) { Press(window, Qt::Key_Escape); }), "");
  EXPECT_EQ(Chosen(DriverLookup(),
                   [](QWidget& window) {
                     Type(window, "zé");
                     ClickButton(window, "Escolher");
                   }),
            "0020");
}

TEST(LookupDialogTest, ArrowsMoveInTheRowsWhileTheSearchHasTheKeyboard) {
  EXPECT_EQ(Chosen(DriverLookup(),
                   [](QWidget& window) {
                     Type(window, "00");
                     Press(window, Qt::Key_Down);
                     Press(window, Qt::Key_Down);
                     Press(window, Qt::Key_Return);
                   }),
            "0020");
}

TEST(LookupDialogTest, ASearchWithoutRowsChoosesNothing) {
  EXPECT_EQ(Chosen(DriverLookup(),
                   [](QWidget& window) {
                     Type(window, "ninguém");
                     Press(window, Qt::Key_Return);
                     EXPECT_TRUE(window.isVisible());
                   }),
            "");
}

TEST(LookupDialogTest, AHiddenKeyColumnStillGivesTheKey) {
  platform::ListaPesquisa lookup = DriverLookup();
  lookup.Coluna(1).Option = true;
  EXPECT_EQ(Chosen(std::move(lookup),
                   [](QWidget& window) {
                     const auto* table = window.findChild<desktop::TableView*>();
                     EXPECT_TRUE(table->isColumnHidden(0));
                     EXPECT_FALSE(table->isColumnHidden(1));
                     Type(window, "0012");
                     EXPECT_EQ(table->model()->rowCount(), 0);
                     Press(window, Qt::Key_A, Qt::ControlModifier);
                     Type(window, "santos");
                     Press(window, Qt::Key_Return);
                   }),
            "0012");
}

}  // namespace
}  // namespace desktop_test
