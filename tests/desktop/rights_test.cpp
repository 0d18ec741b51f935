#include <QAction>
#include <QLabel>
#include <QPushButton>

#include "desktop/shell/main_actions.h"
#include "desktop/shell/sidebar.h"
#include "embedded/database.h"
#include "open_window.h"
#include "store/forwarding_store.h"
#include "support/fleet.h"

namespace desktop_test {
namespace {

using zorCrmParvel::TableUse;

/// A database of which some is refused to the user.
class GuardedStore : public store::ForwardingStore {
 public:
  explicit GuardedStore(zorCrmParvel::Refusals refusals)
      : ForwardingStore(embedded::Database::Open(":memory:")), refusals_(std::move(refusals)) {}
  zorCrmParvel::Refusals Refused() override { return refusals_; }

 private:
  zorCrmParvel::Refusals refusals_;
};

class RightsTest : public OpenWindow {
 protected:
  void Open(zorCrmParvel::Refusals refusals) {
    window.Open(std::make_unique<desktop::Workspace>(std::make_shared<GuardedStore>(std::move(refusals))));
    window.workspace()->reader().Finish();
    desk.host.AskRights([this](const std::string& ficha) { return window.WhyNotConfirm(ficha); });
  }
  /// "disabled: reason", or the usual tip.
  static QString Shown(const QAction& action) {
    return (action.isEnabled() ? QString() : QStringLiteral("disabled: ")) + action.toolTip();
  }
  QAction* Named(const char* text) {
    for (QAction* action : window.page()->own_commands())
      if (action->text() == QString::fromUtf8(text)) return action;
    return nullptr;
  }
};

TEST_F(RightsTest, WhatIsRefusedIsDisabledWithTheReason) {
  Open({{"zor_PV_Viaturas", {TableUse::kAdd, TableUse::kChange, TableUse::kRemove}},
        {"zor_PV_Marcas", {TableUse::kRemove}},
        {"zor_PV_Multas", {TableUse::kRead}}});
  testing_support::AddVehicle(bd(), "AA-00-01");
  const desktop::MainActions& actions = window.actions();
  window.ShowList("Viaturas");
  EXPECT_EQ(
      Shown(*actions.add),
      "disabled: O seu utilizador não pode criar registos em «Viaturas». Peça a permissão a quem administra "
      "o servidor.");
  EXPECT_TRUE(Shown(*actions.remove).startsWith("disabled: O seu utilizador não pode remover"));
  EXPECT_TRUE(Shown(*Named("Alterar &campo…")).startsWith("disabled: O seu utilizador não pode alterar"))
      << Shown(*Named("Alterar &campo…")).toStdString();
  EXPECT_TRUE(Named("E&volução…")->isEnabled());
  EXPECT_TRUE(actions.import_file->isEnabled()) << "something may be written";

  desk.script.Next([](QWidget& ficha) {
    const auto buttons = ficha.findChildren<QPushButton*>();
    const auto confirm = std::find_if(buttons.begin(), buttons.end(),
                                      [](QPushButton* each) { return each->text().contains("Conf"); });
    ASSERT_NE(confirm, buttons.end());
    EXPECT_FALSE((*confirm)->isEnabled());
    EXPECT_TRUE((*confirm)->toolTip().contains("Peça a permissão"));
    ficha.close();
  });
  ASSERT_TRUE(actions.edit->isEnabled()) << "a record can be looked at";
  actions.edit->trigger();

  window.ShowList("Marcas");
  EXPECT_EQ(Shown(*actions.add), "Novo registo (Insert)");
  auto* side = window.findChild<desktop::Sidebar*>();
  const QListWidgetItem* fines = side->findItems("Multas", Qt::MatchExactly).front();
  EXPECT_FALSE(fines->flags().testFlag(Qt::ItemIsEnabled));
  EXPECT_TRUE(fines->toolTip().contains("não pode ver «Multas»"));
}

TEST_F(RightsTest, WhoMayOnlyReadIsToldOnceAndAnotherDatabaseIsFree) {
  zorCrmParvel::Refusals all;
  for (const desktop::ListEntry& entry : desktop::AllLists())
    all["zor_PV_" + std::string(entry.key == std::string("Apolices") ? "Seguros" : entry.key)] = {
        TableUse::kAdd, TableUse::kChange, TableUse::kRemove};
  all["zor_Funcionarios"] = all["zor_PV_Viaturas"];
  Open(all);
  const auto label = [this] {
    for (QLabel* each : window.findChildren<QLabel*>())
      if (each->text() == "Só leitura") return each;
    return static_cast<QLabel*>(nullptr);
  };
  EXPECT_TRUE(label()->isVisible());
  EXPECT_FALSE(window.actions().import_file->isEnabled());
  Open({});
  EXPECT_FALSE(label()->isVisible());
  EXPECT_TRUE(window.actions().import_file->isEnabled());
}

}  // namespace
}  // namespace desktop_test
