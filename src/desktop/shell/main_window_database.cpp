#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QTimer>
#include <utility>

#include "desktop/database/connection_dialog.h"
#include "desktop/database/copies_dialog.h"
#include "desktop/database/copy_keeper.h"
#include "desktop/database/database_dialogs.h"
#include "desktop/exchange/import_dialog.h"
#include "desktop/look/text.h"
#include "desktop/shell/main_actions.h"
#include "desktop/shell/main_window.h"
#include "desktop/shell/message_box.h"
#include "desktop/shell/start_up.h"
#include "desktop/start/alert_board.h"
#include "desktop/start/due_notifier.h"
#include "platform/host.h"
#include "setup/base_codes.h"

namespace desktop {
namespace {

constexpr int kMessageTime = 8000;  // milliseconds
constexpr int kRest = 15000;        // milliseconds between looks at the log

}  // namespace

void MainWindow::ConnectDatabase() {
  connect(actions_->open, &QAction::triggered, this, &MainWindow::AskAndOpen);
  connect(actions_->create, &QAction::triggered, this, &MainWindow::AskAndCreate);
  connect(actions_->connect_to, &QAction::triggered, this, &MainWindow::AskAndConnect);
  connect(actions_->copy, &QAction::triggered, this, &MainWindow::AskAndCopy);
  connect(actions_->restore, &QAction::triggered, this, &MainWindow::AskAndRestore);
  connect(actions_->import_file, &QAction::triggered, this, [this] { Import({}); });
  setAcceptDrops(true);
  connect(actions_->check, &QAction::triggered, this, &MainWindow::CheckDatabase);
  connect(actions_->recent_menu, &QMenu::aboutToShow, this, &MainWindow::FillRecent);
  connect(copies_, &CopyKeeper::Changed, this, [this] { copy_->setText(copies_->StateText()); });
  connect(copies_, &CopyKeeper::Failed, this, [this](const QString& reason) {
    Tell(QStringLiteral("A cópia de hoje não foi feita. ") + reason);
  });
  rest_ = new QTimer(this);
  connect(rest_, &QTimer::timeout, this, &MainWindow::KeepLogShort);
  rest_->start(kRest);
}

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
  due_->Watch(nullptr);
  copies_->Watch({});
  workspace_.reset();
}

void MainWindow::AskAndRestore() {
  CopiesDialog dialog(*copies_, this);
  if (dialog.exec() == QDialog::Accepted) Restore(dialog.file());
}

void MainWindow::Restore(const QString& copy) {
  const std::string file = workspace_->file()->path();
  const QString question = QStringLiteral(
      "Pôr a cópia\n%1\nno lugar da base de dados\n%2?\n\nO que lá está agora não se perde: fica ao lado, "
      "com a data no nome.");
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

void MainWindow::CheckDatabase() {
  const std::string file = workspace_->file()->path();
  QString text;
  Guarded(this, [&] {
    const embedded::FileReport report = embedded::Database::Check(file);
    text = QStringLiteral("%1 registos em %2 tabelas foram lidos")
               .arg(Grouped(static_cast<long>(report.rows)))
               .arg(report.tables);
    text += report.problems.empty() ? QStringLiteral(". Está tudo bem.") : QStringLiteral(":");
    for (const std::string& problem : report.problems) text += QStringLiteral("\n\n") + ToQt(problem);
  });
  if (!text.isEmpty())
    ShowMessage(this, text, platform::kOkOnly | platform::kInformation,
                QStringLiteral("Verificar base de dados"));
}

void MainWindow::WriteBaseCodes() {
  long written = 0;
  const auto write = [&] {
    zorCrmParvel::Batch batch(*workspace_->store());
    written = setup::WriteBaseCodes(workspace_->store());
    batch.Commit();
  };
  if (Guarded(this, write))
    Tell(QStringLiteral("%1 nas tabelas de base.")
             .arg(Counted(written, QStringLiteral("código novo"), QStringLiteral("códigos novos"))));
  Reload();
}

/// In a database of its own; the one that was open is among the recent ones.
void MainWindow::OpenDemo() {
  Guarded(this, [this] {
    Options options;
    options.demo = true;
    auto workspace = std::make_unique<Workspace>(FromQt(DatabaseFor(options, settings_)));
    workspace->FillDemo();
    Open(std::move(workspace));
    Tell(QStringLiteral("Frota inventada. A sua está em «Ficheiro > Bases de dados recentes»."));
  });
}

/// Without a file the assistant asks for one.
void MainWindow::Import(const QString& file) {
  if (workspace_ == nullptr) return;
  // Nothing else uses the database while the assistant works.
  alerts_->Finish();
  rest_->stop();
  ImportDialog dialog(workspace_->store(), this);
  if (!file.isEmpty()) dialog.OpenFile(file);
  dialog.exec();
  rest_->start(kRest);
  if (dialog.HasWritten()) Reload();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!DroppedFile(*event).isEmpty()) event->acceptProposedAction();
}

/// Later: whoever dragged the file waits for the drop to end.
void MainWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  QTimer::singleShot(0, this, [this, file = DroppedFile(*event)] { Import(file); });
}

void MainWindow::FillRecent() {
  actions_->recent_menu->clear();
  for (const QString& file : RecentDatabases(settings_)) {
    QAction* action = actions_->recent_menu->addAction(QString(file).replace('&', QLatin1String("&&")));
    connect(action, &QAction::triggered, this, [this, file] { OpenFile(file); });
  }
  if (actions_->recent_menu->isEmpty())
    actions_->recent_menu->addAction(QStringLiteral("Ainda não há outras"))->setEnabled(false);
}

/// The file that is open; empty for a server, and for a database in memory.
std::string MainWindow::OpenFileName() const {
  const embedded::Database* file = workspace_->file();
  return file != nullptr && file->path() != ":memory:" ? file->path() : std::string();
}

/// A window that rests holds the rows that its list has not read yet.
void MainWindow::KeepLogShort() {
  if (workspace_ != nullptr && workspace_->file() != nullptr) workspace_->file()->KeepLogShort();
}

}  // namespace desktop
