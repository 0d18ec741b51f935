#include "desktop/database/database_dialogs.h"

#include "desktop/shell/file_dialog.h"

namespace desktop {
namespace {

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
