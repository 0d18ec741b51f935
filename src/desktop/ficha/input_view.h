#pragma once

#include "desktop/ficha/control_view.h"

class QLineEdit;
class QPlainTextEdit;

namespace desktop {

/// An input field: a line, or several lines of notes. A number is shown by its mask when the field is left.
class InputView : public ControlView {
 public:
  InputView(platform::zor_input& field, UserActs& acts, QWidget* parent);

  QWidget* widget() const override;
  /// The width of a field that shows so many characters; 0 is a field without a limit.
  static int WidthFor(int characters, const QWidget* widget);

 protected:
  void SyncContent() override;
  /// The key of the number pad types the decimal mark, whichever the keyboard has on it.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeLine(QWidget* parent);
  void MakeNotes(QWidget* parent);
  void Typed(const QString& text);
  void Refused(const QString& text, qsizetype added, int caret);
  void SelectionMoved();
  void ShowText(const QString& text);
  void ShowSelection();
  void ShowState(bool editable);
  QString ShownText() const;

  platform::zor_input& field_;
  QLineEdit* line_ = nullptr;
  QPlainTextEdit* notes_ = nullptr;
  bool was_active_ = false;
  int start_ = 0;
  int length_ = 0;
};

}  // namespace desktop
