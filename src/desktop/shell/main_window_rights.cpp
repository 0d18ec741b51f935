#include <QAction>
#include <QLabel>

#include "desktop/list/context_menu.h"
#include "desktop/list/list_commands.h"
#include "desktop/look/text.h"
#include "desktop/shell/main_actions.h"
#include "desktop/shell/main_window.h"
#include "desktop/shell/sidebar.h"

namespace desktop {

QString MainWindow::WhyNotConfirm(const std::string& ficha) const {
  return workspace_ != nullptr ? workspace_->rights().WhyNotConfirm(ficha) : QString();
}

/// They are known a moment after the database was opened; until then everything is offered, and the database
/// itself refuses. What is older than the office keeps goes then, where that is allowed.
void MainWindow::FindRights() {
  sidebar_->ShowRights(workspace_->rights());
  workspace_->FindRights(this, [this] {
    sidebar_->ShowRights(workspace_->rights());
    if (list_ != nullptr) list_->ShowOwnCommands();
    Update();
    const bool may_forget =
        workspace_->rights().WhyNot(zorCrmParvel::TableUse::kRemove, "parvel_historico").isEmpty();
    if (may_forget) ForgetOldHistory();
  });
}

/// What the user has no right to is there, disabled, and says why.
void MainWindow::UpdateRights() {
  const QString nothing = workspace_ != nullptr ? workspace_->rights().WhyNothing() : QString();
  only_reads_->setVisible(!nothing.isEmpty());
  only_reads_->setToolTip(PlainToolTip(nothing));
  Allow(*actions_->import_file, workspace_ != nullptr, nothing);
  Allow(*actions_->undo, true, nothing);
  for (const auto& [action, command] :
       {std::pair{actions_->add, kNewCommand}, {actions_->remove, kRemoveCommand}})
    Allow(*action, list_ != nullptr && list_->Can(command),
          list_ != nullptr ? list_->WhyNot(command) : QString());
}

}  // namespace desktop
