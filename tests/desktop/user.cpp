#include "user.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

namespace desktop_test {
namespace {

constexpr int kTick = 5;  // milliseconds

QString Plain(QString text) { return text.remove(QLatin1Char('&')); }

QWidget& Focus(QWidget& window) {
  QWidget* focus = window.focusWidget();
  return focus != nullptr ? *focus : window;
}

}  // namespace

Script::Script() { QTimer::singleShot(kTick, this, &Script::Look); }

Script::~Script() { EXPECT_TRUE(steps_.empty()) << steps_.size() << " windows never came"; }

void Script::Look() {
  QTimer::singleShot(kTick, this, &Script::Look);
  QWidget* window = QApplication::activeModalWidget();
  if (window == nullptr || !window->isVisible() || handled_.contains(window)) return;
  handled_.append(window);
  Run(*window);
  handled_.removeOne(window);
}

void Script::Run(QWidget& window) {
  const QPointer<QWidget> alive(&window);
  if (steps_.empty()) {
    const auto* box = qobject_cast<QMessageBox*>(&window);
    ADD_FAILURE() << "nobody expected the window "
                  << (box != nullptr ? box->text() : window.windowTitle()).toStdString();
  } else {
    const auto step = std::move(steps_.front());
    steps_.pop_front();
    step(window);
  }
  if (alive && window.isVisible()) qobject_cast<QDialog*>(&window)->done(QDialog::Rejected);
}

void Script::Answer(const QString& button) {
  Next([this, button](QWidget& window) {
    auto* box = qobject_cast<QMessageBox*>(&window);
    ASSERT_NE(box, nullptr) << "no message box, but " << window.windowTitle().toStdString();
    boxes << box->text() + box->detailedText();
    ClickButton(window, button);
  });
}

void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(&Focus(window), key, modifiers);
}

void Type(QWidget& window, const QString& text) {
  for (QChar c : text)
    QTest::sendKeyEvent(QTest::Click, &Focus(window), Qt::Key_unknown, QString(c), Qt::NoModifier);
}

void Paste(QWidget& window, const QString& text) {
  QApplication::clipboard()->setText(text);
  Press(window, Qt::Key_V, Qt::ControlModifier);
}

void Click(QWidget& widget) { QTest::mouseClick(&widget, Qt::LeftButton); }

void ClickButton(QWidget& window, const QString& text) {
  for (auto* button : window.findChildren<QAbstractButton*>())
    if (Plain(button->text()) == text) return Click(*button);
  ADD_FAILURE() << "no button " << text.toStdString();
}

}  // namespace desktop_test
