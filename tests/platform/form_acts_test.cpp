// What a user does to controls of every kind.

#include "platform/screen/form.h"

#include <gtest/gtest.h>

#include "support/errors.h"
#include "support/scripted_host.h"

namespace platform {
namespace {

/// One control of each kind between two fields.
class Kinds : public Form {
 public:
  Kinds() {
    tabs.Captions = {"um", "dois"};
    grid.SetRowCount(2);
    middle.assign(Controls().begin() + 1, Controls().end() - 2);
    Load();
  }
  /// Gives each control something to choose from.
  void Fill() {
    combo.List = {"um", "dois"};
    grid.AddColumn("A", "A", 100);
    grid.EditableColumn = "A";
    files.SetRows(2);
  }
  zor_input field{*this, "field"};
  CheckBox box{*this, "box"};
  ComboBox combo{*this, "combo"};
  DTPicker date{*this, "date"};
  MonthView month{*this, "month"};
  TabControl tabs{*this, "tabs"};
  SGGrid grid{*this, "grid"};
  MSFlexGrid files{*this, "files"};
  zor_input after{*this, "after"};
  PushButton last{*this, "last"};
  std::vector<Control*> middle;
};

TEST(Form, EnterGoesOnAndEscapeStepsBackInControlsOfEveryKind) {
  Kinds form;
  for (Control* control : form.middle) {
    SCOPED_TRACE(control->Name());
    form.UserGoesTo(*control);
    form.UserKey(kKeyEnter);
    EXPECT_EQ(form.ActiveControl(), form.Neighbour(control, false));
    form.UserKey(kKeyEscape);
    EXPECT_EQ(form.ActiveControl(), control);
  }
  form.date.KeyPress = [&](int& key) {
    if (key == kKeyEnter) form.SendKeys("{TAB}");
  };
  form.UserGoesTo(form.date);
  form.UserKey(kKeyEnter);
  EXPECT_EQ(form.ActiveControl(), &form.month) << "one step, whoever sends the key";
  long opened = -1;
  form.grid.DoubleClick = [&](long row) { opened = row; };
  form.UserSelectsRow(form.grid, 1);
  form.UserKey(kKeyEnter);
  EXPECT_EQ(opened, 1);
}

TEST(Form, APointThatDoesNotPartDigitsInThreesKeepsTheField) {
  Kinds form;
  form.field.formato_campo = zor_input::kNumero;
  form.field.PedidoLista = [&] { form.last.SetFocus(); };
  int pressed = 0;
  form.last.Click = [&] { ++pressed; };
  for (const char* text :
       {"40.5", "1.5", "1234.567", "0.500", "1.23", ".5", "1.2345", "1..234", "1,5.000", "-40.5"}) {
    SCOPED_TRACE(text);
    form.UserGoesTo(form.field);
    form.UserTypes(form.field, text);
    EXPECT_EQ(form.Notice(), "");
    EXPECT_FALSE(form.UserGoesTo(form.box));
    for (int key : {kKeyTab, kKeyEnter, kKeyEscape, kKeyF3}) form.UserKey(key);
    EXPECT_NE(form.Notice().find(text), std::string::npos) << form.Notice();
    form.UserPresses(form.last);
    EXPECT_EQ(pressed, 0);
    EXPECT_EQ(form.ActiveControl(), &form.field);
    EXPECT_EQ(form.field.Text, text);
  }
  for (const char* text : {"40,5", "1.234", "12.345.678,90", "-1.234", "", "1234"}) {
    SCOPED_TRACE(text);
    form.UserGoesTo(form.field);
    form.UserTypes(form.field, text);
    EXPECT_TRUE(form.UserGoesTo(form.box));
    EXPECT_EQ(form.Notice(), "");
  }
  form.field.formato_campo = zor_input::kTexto;
  form.UserTypes(form.field, "v1.5");
  EXPECT_TRUE(form.UserGoesTo(form.box)) << "a text is no number";
}

TEST(Form, ARowIsLeftAloneWhenTheFocusCannotComeToItsGrid) {
  Kinds form;
  PopUpMenu menu;
  menu.Add(7, "Apagar").key = kKeyDelete;
  std::string acts;
  form.grid.AddColumn("a", "a", 100);
  form.grid.EditableColumn = "a";
  form.grid.PopUp = &menu;
  form.grid.PopUpCommand = [&](long command) { acts += "c" + std::to_string(command); };
  form.grid.DoubleClick = [&](long) { acts += "d"; };
  form.UserKey(kKeyDelete);
  form.UserGoesTo(form.grid);
  form.UserKey(kKeyDelete);
  EXPECT_EQ(acts, "") << "no row is chosen";
  form.UserSelectsRow(form.grid, 1);
  form.UserKey(kKeyDelete);
  menu.Find(7)->enabled = false;
  form.UserKey(kKeyDelete);
  EXPECT_EQ(acts, "c7");
  form.UserGoesTo(form.field);
  form.field.Validate = [](bool& cancel) { cancel = true; };
  form.UserCommands(form.grid, 1, 7);
  form.UserDoubleClicks(form.grid, 1);
  EXPECT_FALSE(form.UserEditsCell(form.grid, 1, "x"));
  EXPECT_EQ(acts, "c7");
  EXPECT_EQ(form.grid.CellText(1, 0), "");
}

TEST(Form, EachActTellsItsControlAndThenDeliversTheKeysThatWereSent) {
  Kinds form;
  form.Fill();
  std::string told;
  const auto tell = [&](const char* what) {
    return [&, what](auto&&...) {
      told += what;
      form.SendKeys("{TAB}");
    };
  };
  form.box.Click = tell("box");
  form.combo.Change = [&] { told += "change "; };
  form.combo.Click = tell("choice");
  form.date.Change = tell("date");
  form.month.DateClick = tell("month");
  form.tabs.Click = tell("tabs");
  form.grid.RowChange = tell("row");
  form.grid.DoubleClick = tell("double");
  form.grid.PopUpCommand = tell("command");
  form.grid.ValidateEdit = tell("edit");
  form.files.Click = tell("files");
  const Date day = Date::FromParts(2024, 3, 1);
  const struct {
    Control& control;
    std::function<void()> act;
    const char* told;
  } acts[] = {{form.box, [&] { form.UserToggles(form.box); }, "box"},
              {form.combo, [&] { form.UserChooses(form.combo, 1); }, "change choice"},
              {form.date, [&] { form.UserPicksDate(form.date, day); }, "date"},
              {form.month, [&] { form.UserClicksDate(form.month, day); }, "month"},
              {form.tabs, [&] { form.UserSelectsTab(form.tabs, 1); }, "tabs"},
              {form.grid, [&] { form.UserSelectsRow(form.grid, 1); }, "row"},
              {form.grid, [&] { form.UserDoubleClicks(form.grid, 1); }, "double"},
              {form.grid, [&] { form.UserCommands(form.grid, 1, 7); }, "command"},
              {form.grid, [&] { form.UserEditsCell(form.grid, 1, "x"); }, "edit"},
              {form.files, [&] { form.UserSelectsRow(form.files, 1); }, "files"}};
  for (const auto& act : acts) {
    told.clear();
    act.act();
    EXPECT_EQ(told, act.told);
    EXPECT_EQ(form.ActiveControl(), form.Neighbour(&act.control, false)) << act.told;
  }
  EXPECT_EQ(form.box.Value + form.combo.ListIndex + form.tabs.Tab + form.files.Row +
                static_cast<int>(form.grid.Row()),
            5);
  EXPECT_TRUE(form.date.Value.ToDate() == day && form.month.Value == day);
  EXPECT_EQ(form.grid.CellText(1, 0), "x");
}

TEST(Form, AnActThatChangesNothingTellsNobodyAndNoneNeedsAHandler) {
  Kinds form;
  form.Fill();
  const Date day = Date::FromParts(2024, 3, 1);
  const auto all = [&] {
    form.UserTypes(form.field, "x");
    form.UserToggles(form.box);
    form.UserChooses(form.combo, 1);
    form.UserPicksDate(form.date, day);
    form.UserClicksDate(form.month, day);
    form.UserMovesToDate(form.month, day.AddDays(1));
    form.UserSelectsTab(form.tabs, 1);
    form.UserDoubleClicks(form.grid, 1);
    form.UserCommands(form.grid, 1, 7);
    EXPECT_TRUE(form.UserEditsCell(form.grid, 1, "x"));
    form.UserSelectsRow(form.files, 1);
    form.UserPresses(form.last);
  };
  all();
  EXPECT_EQ(form.box.Value, 1);
  EXPECT_EQ(form.month.Value, day.AddDays(1));
  std::string told;
  form.field.Change = [&] { told += "field "; };
  form.combo.Change = form.combo.Click = [&] { told += "choice "; };
  form.date.Change = [&] { told += "date "; };
  form.tabs.Click = [&](int) { told += "tabs "; };
  all();
  for (const int index : {-1, 2}) {
    form.UserChooses(form.combo, index);
    form.UserSelectsTab(form.tabs, index);
    EXPECT_EQ(testing_support::NumberOf([&] { form.UserSelectsRow(form.files, index); }),
              kSubscriptOutOfRange);
  }
  form.UserPicksDate(form.date, Variant::Null{});
  EXPECT_EQ(told, "");
  EXPECT_EQ(form.box.Value, 0);
  EXPECT_EQ(form.combo.ListIndex + form.tabs.Tab + form.files.Row, 3);
  EXPECT_TRUE(form.date.Value.ToDate() == day);
  EXPECT_EQ(testing_support::NumberOf([&] { form.UserSelectsRow(form.grid, 2); }), kSubscriptOutOfRange);
  EXPECT_EQ(testing_support::NumberOf([&] { form.UserSelectsRow(form.grid, -2); }), kSubscriptOutOfRange);
  EXPECT_TRUE(form.UserSelectsRow(form.grid, -1)) << "no row";
  form.date.Optional = true;
  form.UserPicksDate(form.date, Variant::Null{});
  form.UserChooses(form.combo, 0);
  form.UserSelectsTab(form.tabs, 0);
  EXPECT_EQ(told, "date choice choice tabs ");
}

}  // namespace
}  // namespace platform
