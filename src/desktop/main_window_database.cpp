#include <QFileInfo>
#include <QStatusBar>

#include "desktop/connection_dialog.h"
#include "desktop/database_dialogs.h"
#include "desktop/main_window.h"
#include "desktop/text.h"
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

}  // namespace desktop
