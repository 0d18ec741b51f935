#include "platform/screen/form.h"

#include <gtest/gtest.h>

#include "support/errors.h"
#include "support/scripted_host.h"

namespace platform {
namespace {

/// Two fields, a box and two buttons; what happens is written down.
class Probe : public Form {
 public:
  Probe() {
    Name = "Probe";
    b.CausesValidation = true;
    close.CausesValidation = false;
    a.Validate = [this](bool& cancel) {
      log += "validate-a ";
      cancel = a.Text.empty();
    };
    a.KeyPress = [this](int& key) {
      if (key != kKeyEscape) return;
      SendKeys("+{TAB}");
      key = kKeyNone;
      Unload();
    };
    b.KeyPress = [this](int& key) {
      if (key != kKeyEscape) return;
      SendKeys("+{TAB}");
      key = kKeyNone;
    };
    ok.Click = [this] {
      log += "ok(";
      a.SetFocus();
      SendKeys("{TAB}");
      log += ") ";
    };
    close.Click = [this] { Unload(); };
  }
  zor_input a{*this, "a"};
  zor_input b{*this, "b"};
  CheckBox box{*this, "box"};
  PushButton ok{*this, "ok"};
  PushButton close{*this, "close"};
  std::string log;
};

/// The first field holds a text and has the focus.
class FormTest : public testing::Test {
 protected:
  FormTest() {
    form.Load();
    form.UserTypes(form.a, "x");
  }
  Probe form;
};

TEST_F(FormTest, ValidationKeepsTheFocusUnlessTheButtonDoesNotAskForIt) {
  form.a.Text.clear();
  EXPECT_EQ(form.ActiveControl(), &form.a);
  form.UserKey(kKeyTab);
  EXPECT_EQ(form.ActiveControl(), &form.a);
  form.UserPresses(form.ok);
  EXPECT_EQ(form.log, "validate-a validate-a ") << "the button must not act";
  EXPECT_FALSE(form.UserGoesTo(form.box));
  form.UserPresses(form.close);
  EXPECT_TRUE(form.IsClosed());
}

TEST_F(FormTest, SentKeysArriveAfterTheHandlerHasReturned) {
  form.UserPresses(form.ok);
  EXPECT_EQ(form.log, "validate-a ok() validate-a ");
  EXPECT_EQ(form.ActiveControl(), &form.b);
}

TEST_F(FormTest, EnterMovesOnAndEscapeStepsBackOrCloses) {
  form.UserKey(kKeyEnter);
  EXPECT_EQ(form.ActiveControl(), &form.b);
  form.UserKey(kKeyEscape);
  EXPECT_EQ(form.ActiveControl(), &form.a);
  EXPECT_FALSE(form.IsClosed());
  form.log.clear();
  form.UserKey(kKeyEscape);
  EXPECT_TRUE(form.IsClosed());
  EXPECT_EQ(form.log, "") << "a key sent to a closed form goes nowhere";
}

TEST_F(FormTest, AFailingHandlerDropsItsKeysAndLeavesTheFormUsable) {
  form.ok.Click = [&] {
    form.SendKeys("{TAB}");
    throw RuntimeError(kTypeMismatch);
  };
  EXPECT_THROW(form.UserPresses(form.ok), RuntimeError);
  form.UserGoesTo(form.a);
  form.UserKey(kKeyTab);
  EXPECT_EQ(form.ActiveControl(), &form.b);
  EXPECT_EQ(testing_support::NumberOf([&] { form.SendKeys("{HOME}"); }), kInvalidCall);
}

TEST_F(FormTest, TabSkipsWhatIsDisabledHiddenOrOutOfTheOrder) {
  form.b.Enabled = false;
  form.box.TabStop = false;
  form.UserKey(kKeyTab);
  EXPECT_EQ(form.ActiveControl(), &form.ok);
  form.UserKey(kKeyTab, true);
  EXPECT_EQ(form.ActiveControl(), &form.a);
  form.b.SetFocus();
  EXPECT_EQ(form.ActiveControl(), &form.a) << "nothing happens where the focus can't come";
  form.ok.Click = [&] { form.ok.Enabled = false; };
  form.UserPresses(form.ok);
  EXPECT_EQ(form.ActiveControl(), &form.close) << "nor does it stay there";
}

TEST_F(FormTest, AFieldTakesNoMoreThanItsLimit) {
  form.a.maxlength = 10;
  int changes = 0;
  form.a.Change = [&] { ++changes; };
  EXPECT_TRUE(form.UserTypes(form.a, "Citroën C3"));
  EXPECT_FALSE(form.UserTypes(form.a, std::string(10000, 'x')));
  EXPECT_EQ(form.a.Text, "Citroën C3");
  EXPECT_EQ(changes, 1);
}

TEST(Form, IsLoadedBeforeAHostShowsIt) {
  testing_support::ScriptedHost host;
  Probe form;
  host.NextForm([&](Form& shown) {
    EXPECT_TRUE(shown.IsLoaded());
    EXPECT_EQ(shown.ActiveControl(), &form.a);
  });
  form.ShowModal();
  EXPECT_TRUE(form.IsClosed());
}

}  // namespace
}  // namespace platform
