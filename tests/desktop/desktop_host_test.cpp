#include "desktop/shell/desktop_host.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "user.h"

namespace desktop_test {
namespace {

TEST(DesktopHostTest, MessageBoxesFollowTheirStyle) {
  struct Case {
    int style;
    QStringList buttons;
    const char* byDefault;
    QMessageBox::Icon icon;
    int closed;  // the answer when the box is closed
  };
  using platform::MsgBoxAnswer;
  const Case cases[] = {
      {48, {"OK"}, "OK", QMessageBox::Warning, platform::kOk},
      {321, {"OK", "Cancelar"}, "Cancelar", QMessageBox::Information, platform::kCancel},
      {579, {"&Sim", "&Não", "Cancelar"}, "Cancelar", QMessageBox::Information, platform::kCancel},
      {292, {"&Sim", "&Não"}, "&Não", QMessageBox::Question, platform::kNo},
      {4, {"&Sim", "&Não"}, "&Sim", QMessageBox::NoIcon, platform::kNo},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.style);
    Desk desk;
    desk.script.Next([&](QWidget& window) {
      auto& box = dynamic_cast<QMessageBox&>(window);
      EXPECT_EQ(box.text(), "Vai proceder à anulação!\nPretende continuar?");
      EXPECT_EQ(box.windowTitle(), "Informação");
      EXPECT_EQ(box.icon(), c.icon);
      QStringList buttons;
      for (QAbstractButton* button : box.buttons()) buttons << button->text();
      for (const QString& button : c.buttons) EXPECT_TRUE(buttons.contains(button)) << button.toStdString();
      EXPECT_EQ(buttons.size(), c.buttons.size());
      for (QAbstractButton* button : box.buttons())
        EXPECT_EQ(qobject_cast<QPushButton*>(button)->isDefault(), button->text() == c.byDefault);
      box.close();
    });
    EXPECT_EQ(platform::MsgBox("Vai proceder à anulação!\n\rPretende continuar?", c.style, "Informação"),
              c.closed);
  }
}

TEST(DesktopHostTest, AnswersHaveTheModulesNumbers) {
  Desk desk;
  desk.script.Answer("Sim");
  EXPECT_EQ(platform::MsgBox("?", platform::kYesNoCancel), platform::kYes);
  desk.script.Answer("Não");
  EXPECT_EQ(platform::MsgBox("?", platform::kYesNoCancel), platform::kNo);
  desk.script.Answer("OK");
  EXPECT_EQ(platform::MsgBox("<b>não é marcação</b>", platform::kOkCancel), platform::kOk);
  EXPECT_EQ(desk.script.boxes.last(), "<b>não é marcação</b>");
}

TEST(DesktopHostTest, KeysTypedAheadAnswerNoBox) {
  Desk desk;
  desk.script.Next([](QWidget& box) {
    Press(box, Qt::Key_Return);
    Press(box, Qt::Key_S, Qt::AltModifier);
    Press(box, Qt::Key_Escape);
    ASSERT_TRUE(box.isVisible());
    QTest::qWait(600);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QApplication::sendEvent(box.focusWidget(), &held);
    ASSERT_TRUE(box.isVisible());
    Press(box, Qt::Key_Return);
    EXPECT_FALSE(box.isVisible());
  });
  EXPECT_EQ(platform::MsgBox("?", platform::kYesNo), platform::kYes);
}

TEST(DesktopHostTest, AnInputBoxGivesItsTextOrNothing) {
  Desk desk;
  desk.script.Next([](QWidget& window) {
    Press(window, Qt::Key_A, Qt::ControlModifier);
    Type(window, "Factura");
    ClickButton(window, "OK");
  });
  EXPECT_EQ(desk.host.InputBox("Introduza o título", "Renomear", "antigo"), "Factura");
  desk.script.Next([](QWidget& window) { Press(window, Qt::Key_Escape); });
  EXPECT_EQ(desk.host.InputBox("Introduza o título", "Renomear", "antigo"), "");
}

TEST(DesktopHostTest, FileFiltersAreReadWithAndWithoutPatternsInTheirNames) {
  EXPECT_EQ(
      desktop::FileFilters("Imagens (*.bmp;*.jpg)|*.bmp;*.jpg|Todos os tipos (*.*)|*.*|Ficheiros  |*.pdf"),
      (QStringList{"Imagens (*.bmp *.jpg)", "Todos os tipos (*)", "Ficheiros (*.pdf)"}));
  EXPECT_TRUE(desktop::FileFilters("").isEmpty());
}

TEST(DesktopHostTest, TheTemporaryFolderIsTheUsersAlone) {
  Desk desk;
  const QString folder = QString::fromStdString(desk.host.TemporaryFolder());
  ASSERT_TRUE(folder.endsWith('/'));
  EXPECT_FALSE(QFile::permissions(folder) & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther));
  EXPECT_EQ(folder, QString::fromStdString(desk.host.TemporaryFolder()));
}

}  // namespace
}  // namespace desktop_test
