#pragma once

#include <QDialog>
#include <string_view>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace desktop {

class ManualBrowser;

/// The manual in a window of its own: its pages at the left, with a search over all of them, and the page
/// chosen at the right. The window that it belongs to can be used beside it.
class ManualReader : public QDialog {
  Q_OBJECT

 public:
  explicit ManualReader(QWidget* parent);

  void ShowPage(std::string_view name);
  /// Searches for these words, and shows the first place found.
  void Search(const QString& words);
  /// Shows where a message of the program is explained; false when it isn't.
  bool ShowMessage(const QString& shown);

  const ManualBrowser& browser() const { return *browser_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Build();
  void Connect();
  void Fill();
  void ShowChosen();
  void Mark(const QString& shown);

  QLineEdit* search_;
  QListWidget* pages_;
  QLabel* nothing_;
  QPushButton* back_;
  ManualBrowser* browser_;
};

/// Opens the manual beside a window, or brings it to the front, at the page about a subject.
ManualReader& ShowManual(QWidget* window, std::string_view subject);

}  // namespace desktop
