#include "desktop/start_up.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include "console/paths.h"
#include "desktop/main_window.h"
#include "desktop/text.h"

namespace desktop {
namespace {

constexpr char kDemoFile[] = "demonstracao.db";

/// The file to try next; empty to leave.
QString AskForAnother(const ErrorText& failure, QWidget* parent) {
  QMessageBox box(parent);
  box.setWindowTitle(QStringLiteral("Base de dados"));
  box.setTextFormat(Qt::PlainText);
  box.setIcon(QMessageBox::Warning);
  box.setText(QStringLiteral("Não foi possível abrir a base de dados.\n\n") + failure.headline +
              QStringLiteral("\n") + failure.details);
  QPushButton* other = box.addButton(QStringLiteral("&Escolher outra…"), QMessageBox::AcceptRole);
  QPushButton* create = box.addButton(QStringLiteral("&Criar nova…"), QMessageBox::ActionRole);
  QPushButton* leave = box.addButton(QStringLiteral("&Sair"), QMessageBox::RejectRole);
  box.setDefaultButton(other);
  box.setEscapeButton(leave);
  while (true) {
    box.exec();
    if (box.clickedButton() != other && box.clickedButton() != create) return {};
    QString file = box.clickedButton() == other ? AskForDatabase(parent) : AskForNewDatabase(parent);
    if (!file.isEmpty()) return file;
  }
}

}  // namespace

QString DatabaseFor(const Options& options, const QSettings& settings) {
  if (!options.database.isEmpty()) return options.database;
  QString chosen = settings.value(kDatabaseSetting).toString();
  if (!options.demo && !chosen.isEmpty()) return chosen;
  QString usual = ToQt(console::DefaultDatabasePath());
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
      file = AskForAnother(Describe(error), parent);
      chosen = true;
      if (file.isEmpty()) return nullptr;
    }
  }
}

}  // namespace desktop
