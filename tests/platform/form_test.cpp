#include "platform/form.h"

#include <gtest/gtest.h>

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

TEST(Form, ValidationKeepsTheFocusUnlessTheButtonDoesNotAskForIt) {
  Probe form;
  form.Load();
  EXPECT_EQ(form.ActiveControl(), &form.a);
  form.UserKey(kKeyTab);
  EXPECT_EQ(form.ActiveControl(), &form.a);
  form.UserPresses(form.ok);
  EXPECT_EQ(form.log, "validate-a validate-a ") << "the button must not act";
  EXPECT_FALSE(form.UserGoesTo(form.box));
  form.UserPresses(form.close);
  EXPECT_TRUE(form.IsClosed());
}

TEST(Form, SentKeysArriveAfterTheHandlerHasReturned) {
  Probe form;
  form.Load();
  form.UserTypes(form.a, "x");
  form.log.clear();
  form.UserPresses(form.ok);
  EXPECT_EQ(form.log, "validate-a ok() validate-a ");
  EXPECT_EQ(form.ActiveControl(), &form.b);
}

TEST(Form, EnterMovesOnAndEscapeStepsBackOrCloses) {
  Probe form;
  form.Load();
  form.UserTypes(form.a, "x");
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

TEST(Form, AFailingHandlerDropsItsKeysAndLeavesTheFormUsable) {
  Probe form;
  form.Load();
  form.UserTypes(form.a, "x");
  form.ok.Click = [&] {
    form.SendKeys("{TAB}");
    throw RuntimeError(kTypeMismatch);
  };
  EXPECT_THROW(form.UserPresses(form.ok), RuntimeError);
  form.UserGoesTo(form.a);
  form.UserKey(kKeyTab);
  EXPECT_EQ(form.ActiveControl(), &form.b);
  EXPECT_THROW(form.SendKeys("{HOME}"), RuntimeError);
}

TEST(Form, TabSkipsWhatIsDisabledHiddenOrOutOfTheOrder) {
  Probe form;
  form.Load();
  form.UserTypes(form.a, "x");
  form.b.Enabled = false;
  form.box.TabStop = false;
  form.UserKey(kKeyTab);
  EXPECT_EQ(form.ActiveControl(), &form.ok);
  form.UserKey(kKeyTab, true);
  EXPECT_EQ(form.ActiveControl(), &form.a);
  form.b.SetFocus();
  EXPECT_EQ(form.ActiveControl(), &form.ok) << "a disabled control passes the focus on";
}

TEST(Form, AFieldTakesNoMoreThanItsLimit) {
  Probe form;
  form.Load();
  form.a.maxlength = 10;
  int changes = 0;
  form.a.Change = [&] { ++changes; };
  EXPECT_TRUE(form.UserTypes(form.a, "Citroën C3"));
  EXPECT_FALSE(form.UserTypes(form.a, std::string(10000, 'x')));
  EXPECT_EQ(form.a.Text, "Citroën C3");
  EXPECT_EQ(changes, 1);
}

TEST(Form, RequestsReachTheFieldWithTheFocus) {
  Probe form;
  form.Load();
  std::string asked;
  form.a.PedidoLista = [&] { asked += "lista "; };
  form.a.PedidoFicha = [&] { asked += "ficha "; };
  form.a.PedidoMapa = [&] { asked += "mapa "; };
  for (int key : {kKeyF3, kKeyF4, kKeyF7}) form.UserKey(key);
  EXPECT_EQ(asked, "lista ficha mapa ");
}

TEST(Form, ShownModallyItIsTheHostsUntilItCloses) {
  testing_support::ScriptedHost host;
  Probe form;
  host.NextForm([](Form& shown) {
    EXPECT_TRUE(shown.IsLoaded());
    EXPECT_FALSE(shown.IsClosed());
  });
  form.ShowModal();
  EXPECT_TRUE(form.IsClosed());
}

}  // namespace
}  // namespace platform
