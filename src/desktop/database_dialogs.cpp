#include "desktop/database_dialogs.h"

#include <QFileDialog>

namespace desktop {
namespace {

QString Filter() { return QStringLiteral("Bases de dados (*.db);;Todos os ficheiros (*)"); }

QString Chosen(QFileDialog& dialog) {
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString AskToSave(QWidget* parent, const QString& title, const QString& name) {
  QFileDialog dialog(parent, title, name, Filter());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(QStringLiteral("db"));
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  return Chosen(dialog);
}

}  // namespace

QString AskForDatabase(QWidget* parent) {
  QFileDialog dialog(parent, QStringLiteral("Abrir base de dados"), {}, Filter());
  dialog.setFileMode(QFileDialog::ExistingFile);
  return Chosen(dialog);
}

QString AskForNewDatabase(QWidget* parent) {
  return AskToSave(parent, QStringLiteral("Nova base de dados"), QStringLiteral("frota.db"));
}

QString AskForCopy(QWidget* parent) {
  return AskToSave(parent, QStringLiteral("Guardar cópia"), QStringLiteral("cópia.db"));
}

}  // namespace desktop
