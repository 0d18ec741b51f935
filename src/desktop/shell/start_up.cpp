#include "desktop/shell/start_up.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/database/connection_dialog.h"
#include "desktop/database/database_dialogs.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"
#include "entry/reads_after.h"
#include "sqlserver/connection_text.h"
#include "sqlserver/database.h"
#include "store/database_choice.h"
#include "store/password.h"
#include "store/paths.h"

namespace desktop {
namespace {

constexpr char kDemoFile[] = "demonstracao.db";

/// Puts a copy that the user chooses in the place of a file. False when there is none, or it can't be used.
bool RestoreACopy(const QString& file, QWidget* parent) {
  const QString copy = AskForCopyToRestore(parent);
  return !copy.isEmpty() && Guarded(parent, [&] { embedded::Database::Restore(FromQt(file), FromQt(copy)); });
}

/// The file to try next; empty to leave.
QString AskForAnother(const QString& failed, const ErrorText& failure, QWidget* parent) {
  QMessageBox box(parent);
  box.setWindowTitle(QStringLiteral("Base de dados"));
  box.setTextFormat(Qt::PlainText);
  box.setIcon(QMessageBox::Warning);
  box.setText(QStringLiteral("Não foi possível abrir a base de dados.\n\n") + failure.headline);
  box.setDetailedText(failure.details);
  QPushButton* other = box.addButton(QStringLiteral("&Escolher outra…"), QMessageBox::AcceptRole);
  QPushButton* create = box.addButton(QStringLiteral("&Criar nova…"), QMessageBox::ActionRole);
  QPushButton* restore = box.addButton(QStringLiteral("&Repor cópia…"), QMessageBox::ActionRole);
  QPushButton* leave = box.addButton(QStringLiteral("&Sair"), QMessageBox::RejectRole);
  box.setDefaultButton(other);
  box.setEscapeButton(leave);
  while (true) {
    Run(box);
    if (box.clickedButton() == restore) {
      if (RestoreACopy(failed, parent)) return failed;
      continue;
    }
    if (box.clickedButton() != other && box.clickedButton() != create) return {};
    QString file = box.clickedButton() == other ? AskForDatabase(parent) : AskForNewDatabase(parent);
    if (!file.isEmpty()) return file;
  }
}

/// The password as far as nobody need be asked.
std::optional<sqlserver::Secret> KnownPassword(const Options& options) {
  return options.password ? options.password : store::KnownPassword(FromQt(options.password_file));
}

/// Opens a server without asking for its password.
std::unique_ptr<Workspace> OpenServer(const QString& connection, const Options& options) {
  sqlserver::OpenOptions server;
  server.connection = FromQt(connection);
  server.password = KnownPassword(options).value_or(sqlserver::Secret());
  server.expected = &entry::ReadsAfterEvent;
  return std::make_unique<Workspace>(store::Near(sqlserver::Database::Open(server)));
}

/// True when the server's user has a password that only the user knows.
bool MustAskForPassword(const QString& connection, const Options& options) {
  return sqlserver::ConnectionText(FromQt(connection)).NamesUser() && !KnownPassword(options);
}

}  // namespace

// Who can't have settings kept can work all the same.
void KeepPrivate(const QSettings& settings) {
  try {
    store::CreatePrivateFile(FromQt(settings.fileName()));
  } catch (const std::runtime_error& failure) {
    qWarning("%s", failure.what());
  }
}

QString ServerFor(const Options& options, const QSettings& settings) {
  if (!options.connection.isEmpty()) return options.connection;
  if (options.demo || !options.database.isEmpty()) return {};
  return settings.value(kServerSetting).toString();
}

std::unique_ptr<Workspace> OpenUnasked(const Options& options, const QSettings& settings) {
  const QString server = ServerFor(options, settings);
  if (!server.isEmpty()) return OpenServer(server, options);
  return std::make_unique<Workspace>(FromQt(DatabaseFor(options, settings)));
}

std::unique_ptr<Workspace> OpenAtStart(const Options& options, QSettings& settings, QWidget* parent) {
  const QString server = ServerFor(options, settings);
  if (server.isEmpty()) return OpenOrAsk(DatabaseFor(options, settings), settings, parent);
  ConnectionDialog dialog(settings, parent);
  dialog.ShowServer(server);
  try {
    if (!MustAskForPassword(server, options)) return OpenServer(server, options);
  } catch (const std::exception& error) {
    dialog.ShowReason(WithDetails(Describe(error)));
  }
  return dialog.exec() == QDialog::Accepted ? dialog.Take() : nullptr;
}

QString DatabaseFor(const Options& options, const QSettings& settings) {
  if (!options.database.isEmpty()) return ToQt(store::DatabaseFileNamed(FromQt(options.database)));
  QString chosen = settings.value(kDatabaseSetting).toString();
  if (!options.demo && !chosen.isEmpty()) return chosen;
  QString usual = ToQt(store::DefaultDatabasePath());
  return options.demo ? QFileInfo(usual).path() + QLatin1Char('/') + QLatin1String(kDemoFile) : usual;
}

std::unique_ptr<Workspace> OpenOrAsk(QString file, QSettings& settings, QWidget* parent) {
  bool chosen = false;
  while (true) {
    try {
      auto workspace = std::make_unique<Workspace>(FromQt(file));
      if (chosen) settings.setValue(kDatabaseSetting, file);
      return workspace;
    } catch (const std::exception& error) {
      file = AskForAnother(file, Describe(error), parent);
      chosen = true;
      if (file.isEmpty()) return nullptr;
    }
  }
}

}  // namespace desktop
