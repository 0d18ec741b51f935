#include "desktop/database/database_dialogs.h"

#include <QFileInfo>

#include "desktop/shell/file_dialog.h"

namespace desktop {
namespace {

constexpr char kRecent[] = "recentes";
constexpr int kMostRecent = 8;

QString Filter() { return QStringLiteral("Bases de dados (*.db *.antes-*[0-9]);;Todos os ficheiros (*)"); }

QString AskToSave(QWidget* parent, const QString& title, const QString& name) {
  FileDialog dialog(parent, title, name, Filter());
  dialog.setAcceptMode(FileDialog::AcceptSave);
  dialog.setDefaultSuffix(QStringLiteral("db"));
  dialog.setOption(FileDialog::DontConfirmOverwrite);
  return dialog.Ask();
}

QString AskForExisting(QWidget* parent, const QString& title) {
  FileDialog dialog(parent, title, {}, Filter());
  dialog.setFileMode(FileDialog::ExistingFile);
  return dialog.Ask();
}

}  // namespace

QString AskForFolder(QWidget* parent, const QString& title) {
  FileDialog dialog(parent, title);
  dialog.setFileMode(FileDialog::Directory);
  dialog.setOption(FileDialog::ShowDirsOnly);
  return dialog.Ask();
}

QStringList RecentDatabases(const QSettings& settings) {
  QStringList files = settings.value(kRecent).toStringList();
  files.removeIf([](const QString& file) { return !QFileInfo::exists(file); });
  return files;
}

void RememberDatabase(QSettings& settings, const QString& file) {
  const QString path = QFileInfo(file).absoluteFilePath();
  QStringList files = settings.value(kRecent).toStringList();
  if (files.value(0) == path) return;
  files.removeAll(path);
  files.prepend(path);
  settings.setValue(kRecent, files.mid(0, kMostRecent));
}

QString AskForDatabase(QWidget* parent) {
  return AskForExisting(parent, QStringLiteral("Abrir base de dados"));
}

QString AskForCopyToRestore(QWidget* parent) { return AskForExisting(parent, QStringLiteral("Repor cópia")); }

QString AskForNewDatabase(QWidget* parent) {
  return AskToSave(parent, QStringLiteral("Nova base de dados"), QStringLiteral("frota.db"));
}

QString AskForCopy(QWidget* parent) {
  return AskToSave(parent, QStringLiteral("Guardar cópia"), QStringLiteral("cópia.db"));
}

}  // namespace desktop
