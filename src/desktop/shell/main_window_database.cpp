#include <QFileInfo>
#include <QStatusBar>
#include <utility>

#include "desktop/database/connection_dialog.h"
#include "desktop/database/database_dialogs.h"
#include "desktop/look/text.h"
#include "desktop/shell/main_window.h"
#include "desktop/shell/message_box.h"
#include "desktop/start/alert_board.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr int kMessageTime = 8000;  // milliseconds

}  // namespace

void MainWindow::Tell(const QString& text) { statusBar()->showMessage(text, kMessageTime); }

void MainWindow::AskAndOpen() {
  const QString file = AskForDatabase(this);
  if (!file.isEmpty()) OpenFile(file);
}

void MainWindow::AskAndCreate() {
  const QString file = AskForNewDatabase(this);
  if (file.isEmpty()) return;
  if (!QFileInfo::exists(file)) return OpenFile(file);
  ShowMessage(this, QStringLiteral("O ficheiro %1 já existe.\nEscolha outro nome.").arg(file),
              platform::kOkOnly | platform::kExclamation, QStringLiteral("Nova base de dados"));
}

/// A database that can't be opened leaves the one that is.
void MainWindow::OpenFile(const QString& file) {
  Guarded(this, [&] {
    Open(std::make_unique<Workspace>(FromQt(file)));
    settings_.setValue(kDatabaseSetting, file);
    settings_.remove(kServerSetting);
  });
}

void MainWindow::AskAndConnect() {
  Guarded(this, [this] {
    ConnectionDialog dialog(settings_, this);
    if (dialog.exec() == QDialog::Accepted) Open(dialog.Take());
  });
}

void MainWindow::AskAndCopy() {
  const QString file = AskForCopy(this);
  if (file.isEmpty()) return;
  if (Guarded(this, [&] { workspace_->file()->CopyTo(FromQt(file)); }))
    Tell(QStringLiteral("Cópia escrita em %1").arg(file));
}

/// Nothing of the database is open any more.
void MainWindow::CloseDatabase() {
  ClosePage();
  alerts_->Watch(nullptr);
  workspace_.reset();
}

void MainWindow::AskAndRestore() {
  const QString copy = AskForCopyToRestore(this);
  if (copy.isEmpty()) return;
  const std::string file = workspace_->file()->path();
  const QString question = QStringLiteral(
      "Pôr a cópia\n%1\nno lugar da base de dados\n%2?\n\nO que lá está agora não se perde: fica ao lado, "
      "com a "
      "data no nome.");
  if (ShowMessage(this, question.arg(copy, ToQt(file)), platform::kYesNo | platform::kQuestion,
                  QStringLiteral("Repor cópia")) != platform::kYes)
    return;
  CloseDatabase();
  std::string aside;
  const bool done = Guarded(this, [&] { aside = embedded::Database::Restore(file, FromQt(copy)); });
  Guarded(this, [&] { Open(std::make_unique<Workspace>(file)); });
  Update();
  if (done)
    ShowMessage(
        this,
        QStringLiteral("A cópia está no lugar.") +
            (aside.empty() ? QString() : QStringLiteral("\nO que lá estava ficou em\n") + ToQt(aside)),
        platform::kOkOnly | platform::kInformation, QStringLiteral("Repor cópia"));
}

/// A window that rests holds the rows that its list has not read yet.
void MainWindow::KeepLogShort() {
  if (workspace_ != nullptr && workspace_->file() != nullptr) workspace_->file()->KeepLogShort();
}

}  // namespace desktop
