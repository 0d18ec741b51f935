#pragma once

#include <QSettings>
#include <QString>
#include <QTemporaryDir>
#include <QWidget>
#include <deque>
#include <functional>

#include "desktop/shell/desktop_host.h"
#include "history/act.h"

namespace desktop_test {

/// What the user does in the modal windows to come, one step a window. A window without a step, and a step
/// without a window, fail the test; a window that its step leaves open is closed.
class Script : public QObject {
 public:
  Script();
  ~Script() override;

  void Next(std::function<void(QWidget& window)> step) { steps_.push_back(std::move(step)); }
  /// The next window is a message box: its text is kept, with the details behind it, and the button with this
  /// text is pressed.
  void Answer(const QString& button);
  /// The texts of the boxes answered so far.
  QStringList boxes;

 private:
  void Look();
  void Run(QWidget& window);

  std::deque<std::function<void(QWidget&)>> steps_;
  QList<QWidget*> handled_;
};

/// Settings, host and script of one test.
struct Desk {
  QTemporaryDir folder;
  QSettings settings{folder.filePath("definicoes.ini"), QSettings::IniFormat};
  desktop::DesktopHost host{settings};
  history::PausingHost pausing{host};
  platform::HostInstallation installation{pausing};
  Script script;
};

/// Keys and texts typed into whatever has the keyboard in a window.
void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Type(QWidget& window, const QString& text);
void Paste(QWidget& window, const QString& text);
void Click(QWidget& widget);
/// Clicks the button of a window with this text, mnemonic left out.
void ClickButton(QWidget& window, const QString& text);

}  // namespace desktop_test
