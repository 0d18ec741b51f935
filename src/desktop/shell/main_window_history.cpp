#include <QAction>

#include "desktop/history/undo_dialog.h"
#include "desktop/look/text.h"
#include "desktop/shell/main_actions.h"
#include "desktop/shell/main_window.h"
#include "desktop/shell/message_box.h"
#include "history/retention.h"
#include "history/view/browser.h"
#include "platform/host.h"

namespace desktop {

/// The menu names what would be undone, once that is found.
void MainWindow::UpdateUndo() {
  actions_->undo->setText(QStringLiteral("A&nular a última operação"));
  if (workspace_ == nullptr || !workspace_->kept()->HasHistory()) return;
  finding_undo_.GiveUp();
  finding_undo_ = workspace_->reader().Ask(
      this,
      [](const BackgroundReader::StoreRef& store) { return history::LastToUndo(*history::Beside(store)); },
      [this](const std::optional<history::Operation>& last) {
        if (!last) return;
        const QString words = ToQt(history::ShownWords(*last)).replace('&', QLatin1String("&&"));
        actions_->undo->setText(QStringLiteral("A&nular: ") + words);
      },
      [](const ErrorText&) {});  // the undoing itself meets the same failure, and tells it
}

void MainWindow::ForgetOldHistory() {
  try {
    history::KeepWithin(*workspace_->kept(),
                        history::ReadSettings(zorCrmParvel::DataAccessRef(workspace_->store())),
                        platform::Today());
  } catch (const platform::RuntimeError& error) {
    Tell(Describe(error).headline);
  }
}

void MainWindow::Undo() {
  if (workspace_ == nullptr) return;
  Guarded(this, [this] {
    const auto last = history::LastToUndo(*workspace_->kept());
    if (!last) return Tell(QStringLiteral("Não há nada a anular."));
    if (!AskAndUndo(workspace_->kept(), *last, this)) return;
    Tell(QStringLiteral("Anulado: ") + ToQt(history::ShownWords(*last)));
    Reload();
  });
}

}  // namespace desktop
