#include "desktop/database/connection_dialog.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "desktop/shell/main_actions.h"
#include "desktop/shell/main_window.h"
#include "desktop/shell/start_up.h"
#include "user.h"

namespace desktop_test {
namespace {

using desktop::ConnectionDialog;

class ConnectionDialogTest : public testing::Test {
 protected:
  static QLineEdit* Beside(QWidget& window, const QString& label) {
    for (const auto* each : window.findChildren<QLabel*>())
      if (each->text().remove('&') == label) return qobject_cast<QLineEdit*>(each->buddy());
    return nullptr;
  }
  static void Choose(QWidget& window, const QString& text) {
    for (auto* each : window.findChildren<QRadioButton*>())
      if (each->text().contains(text)) each->setChecked(true);
  }
  static bool Says(const QWidget& window, const QString& text) {
    for (const auto* each : window.findChildren<QLabel*>())
      if (each->isVisible() && each->text().contains(text)) return true;
    return false;
  }
  QString Settings() {
    desk.settings.sync();
    QFile written(desk.settings.fileName());
    return written.open(QIODevice::ReadOnly) ? QString::fromUtf8(written.readAll()) : QString();
  }

  Desk desk;
  const QString file = desk.folder.filePath("frota.db");
};

TEST_F(ConnectionDialogTest, AServerIsKeptOnceItAnswersAndNeverItsPassword) {
  ConnectionDialog dialog(desk.settings, nullptr);
  dialog.show();
  Choose(dialog, "servidor");
  Beside(dialog, "Controlador ODBC")->setText("NaoHa");
  Beside(dialog, "Servidor")->setText("srv");
  Beside(dialog, "Base de dados")->setText(file);
  Beside(dialog, "Utilizador")->setText("ana");
  Beside(dialog, "Senha")->setText("segredo");
  ClickButton(dialog, "Testar e abrir");
  EXPECT_TRUE(Says(dialog, "não está instalado nesta máquina"));
  EXPECT_EQ(dialog.Take(), nullptr);
  EXPECT_FALSE(Settings().contains("srv"));

  Beside(dialog, "Controlador ODBC")->setText("SQLite3");
  ClickButton(dialog, "Testar e abrir");
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  const auto workspace = dialog.Take();
  ASSERT_NE(workspace, nullptr);
  EXPECT_EQ(workspace->file(), nullptr);
  EXPECT_TRUE(Settings().contains("srv"));
  EXPECT_FALSE(Settings().contains("segredo"));
}

TEST_F(ConnectionDialogTest, TheServerChosenLastTimeIsOpenedAtStart) {
  desk.settings.setValue(desktop::kServerSetting, "Driver=SQLite3;Database=" + file + ";Timeout=9");
  const auto workspace = desktop::OpenAtStart({}, desk.settings, nullptr);
  ASSERT_NE(workspace, nullptr);
  EXPECT_EQ(workspace->file(), nullptr);

  desk.settings.setValue(desktop::kServerSetting, "Driver=SQLite3;Database=" + file + ";Timeout=9;UID=ana");
  desk.script.Next([](QWidget& window) {
    EXPECT_EQ(Beside(window, "Utilizador")->text(), "ana");
    ClickButton(window, "Testar e abrir");
  });
  EXPECT_NE(desktop::OpenAtStart({}, desk.settings, nullptr), nullptr);
  EXPECT_TRUE(Settings().contains("Timeout=9"));

  desktop::Options named;
  named.database = file + "2";
  EXPECT_NE(desktop::OpenAtStart(named, desk.settings, nullptr)->file(), nullptr);
}

TEST_F(ConnectionDialogTest, FromTheWindowBackToAFile) {
  desk.settings.setValue(desktop::kServerSetting, "Driver=SQLite3;Database=" + file);
  desktop::MainWindow window(desk.settings);
  window.Open(desktop::OpenAtStart({}, desk.settings, nullptr));
  EXPECT_FALSE(window.actions().copy->isEnabled());
  desk.script.Next([&](QWidget& dialog) {
    Choose(dialog, "ficheiro");
    for (auto* each : dialog.findChildren<QLineEdit*>())
      if (each->text().endsWith("frota.db") && each->isEnabled()) each->setText(file + "2");
    ClickButton(dialog, "Testar e abrir");
  });
  window.actions().connect_to->trigger();
  EXPECT_NE(window.workspace()->file(), nullptr);
  EXPECT_TRUE(window.actions().copy->isEnabled());
  EXPECT_FALSE(desk.settings.contains(desktop::kServerSetting));
}

}  // namespace
}  // namespace desktop_test
