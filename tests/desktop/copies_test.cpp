#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QTableWidget>

#include "desktop/database/copies_dialog.h"
#include "desktop/database/copy_keeper.h"
#include "desktop/database/database_dialogs.h"
#include "desktop/shell/main_actions.h"
#include "open_window.h"

namespace desktop_test {
namespace {

/// The window on a database file of its own.
class CopiesTest : public testing::Test {
 protected:
  CopiesTest() {
    desk.host.SetMainWindow(&window);
    Open();
    window.show();
  }
  void Open() { window.Open(std::make_unique<desktop::Workspace>(file.toStdString())); }
  void Save(const char* plate) {
    window.workspace()->store()->ExecutarSql(
        "", ("INSERT INTO zor_PV_Viaturas (Matricula) VALUES (N'" + std::string(plate) + "')").c_str());
  }

  Desk desk;
  const QString file = desk.folder.filePath("frota.db");
  desktop::MainWindow window{desk.settings};
};

TEST_F(CopiesTest, TodaysIsMadeInTheBackgroundAndPutBackFromTheListOfThem) {
  Save("10-GJ-10");
  EXPECT_EQ(window.copies().StateText(), "Sem cópia");
  window.copies().Start();
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.copies().StateText() == "Cópia de hoje"; }));
  Save("12-AB-34");
  desk.script.Next([](QWidget& dialog) {
    EXPECT_EQ(dialog.findChild<QTableWidget*>()->rowCount(), 1);
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) texts << label->text();
    EXPECT_TRUE(texts.contains("Tem 1 viatura, 0 motoristas, 0 eventos.")) << texts.join('|').toStdString();
    ClickButton(dialog, "Repor esta");
  });
  desk.script.Answer("Sim");
  desk.script.Answer("OK");
  window.actions().restore->trigger();
  EXPECT_EQ(store::Holdings(file.toStdString()), "1 viatura, 0 motoristas, 0 eventos");
}

TEST_F(CopiesTest, WhatCantBeCopiedIsTold) {
  QString told;
  QObject::connect(&window.copies(), &desktop::CopyKeeper::Failed, &window,
                   [&](const QString& reason) { told = reason; });
  QFile blocked(desk.folder.filePath("copias"));
  ASSERT_TRUE(blocked.open(QIODevice::WriteOnly));
  window.copies().Start();
  EXPECT_TRUE(QTest::qWaitFor([&] { return told.contains("Não é possível criar a pasta"); }));
}

TEST_F(CopiesTest, TheFilesThatWereOpenedLastAreOffered) {
  const QString other = desk.folder.filePath("R&D.db");
  window.Open(std::make_unique<desktop::Workspace>(other.toStdString()));
  QMetaObject::invokeMethod(window.actions().recent_menu, "aboutToShow");
  const QList<QAction*> offered = window.actions().recent_menu->actions();
  ASSERT_EQ(offered.size(), 2);
  EXPECT_EQ(offered[0]->text(), desk.folder.filePath("R&&D.db"));
  offered[1]->trigger();
  EXPECT_EQ(QString::fromStdString(window.workspace()->Place()), file);
}

TEST_F(CopiesTest, TheDatabaseIsLookedThrough) {
  Save("10-GJ-10");
  desk.script.Answer("OK");
  window.actions().check->trigger();
  EXPECT_TRUE(desk.script.boxes.value(0).contains("Está tudo bem."))
      << desk.script.boxes.value(0).toStdString();
}

}  // namespace
}  // namespace desktop_test
