#include "desktop/ficha/lookup_dialog.h"

#include <gtest/gtest.h>

#include "desktop/list/table_view.h"
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

TEST(LookupDialogTest, KeysAndButtonsChooseAmongTheRowsFound) {
  const std::pair<const char*, std::function<void(QWidget&)>> cases[] = {
      {"0001", [](QWidget& window) { Press(window, Qt::Key_Return); }},
      {"", [](QWidget& window) { Press(window, Qt::Key_Escape); }},
      {"0020",
       [](QWidget& window) {
         Type(window, "zé");
         ClickButton(window, "Escolher");
       }},
      {"0020",
       [](QWidget& window) {
         Type(window, "00");
         for (Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) Press(window, key);
       }},
      {"", [](QWidget& window) {
         Type(window, "ninguém");
         Press(window, Qt::Key_Return);
         EXPECT_TRUE(window.isVisible());
       }}};
  for (const auto& [key, user] : cases) EXPECT_EQ(Chosen(DriverLookup(), user), key);
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
