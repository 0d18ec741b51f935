#pragma once

#include <QWidget>

namespace desktop {

/// What stands in the middle of the window, beside the side bar: a list of the module, or a page of the
/// window's own. The window's commands, its title and its status bar follow what the page says of itself.
class Page : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  virtual QString Title() const = 0;
  /// What the status bar says of its rows; empty for nothing.
  virtual QString CountText() const { return {}; }
  /// Reads what is shown anew. A failure is shown in its place, and not thrown.
  virtual void Load() = 0;
  virtual void TakeFocus() = 0;

  /// Whether there is something to print and to export now. `Print` and `Export` ask for what they need.
  virtual bool CanPrint() const { return false; }
  virtual void Print() {}
  virtual void Export() {}

  /// Whether the window's search narrows what is shown.
  virtual bool CanSearch() const { return false; }
  virtual QString SearchText() const { return {}; }
  virtual void Search(const QString& text) { Q_UNUSED(text); }

 Q_SIGNALS:
  /// Rows, choice or search changed.
  void Changed();
  /// A short text that nobody has to answer.
  void Told(const QString& text);
  /// The search was taken back by the page itself.
  void SearchCleared();
  /// Something was done here: records may have changed.
  void Worked();
  /// Another page, or a list, is to be shown, by its key.
  void PageWanted(const QString& key);
};

}  // namespace desktop
