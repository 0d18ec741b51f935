#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "desktop/database/background_reader.h"
#include "platform/screen/dialogs.h"

class QKeyEvent;
class QLabel;
class QLineEdit;
class QPushButton;

namespace desktop {

class TableView;

/// The lookup list: typing narrows the rows, Enter or a double click chooses one, Escape none. While its rows
/// are on their way it says so, and what is typed until they come holds for them.
class LookupDialog : public QDialog {
  Q_OBJECT

 public:
  /// The list has been loaded. Error 91 when it hasn't. Rows that come late are read by the reader; without
  /// one, at once.
  LookupDialog(platform::ListaPesquisa& list, QWidget* parent, BackgroundReader* reader = nullptr);

  /// The first column of the row chosen.
  std::string Key() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  void SizeToColumns();
  void Narrow(const QString& text);
  void ShowCount();
  void Choose();
  void ReadRows(BackgroundReader& reader);
  void ShowRows();
  bool Waits(const QKeyEvent& key);

  platform::ListaPesquisa& list_;
  QLineEdit* search_;
  TableView* table_;
  QLabel* count_;
  QPushButton* choose_;
  std::vector<int> waiting_;  // keys that are for the rows, while these are on their way
  bool is_reading_ = false;
};

}  // namespace desktop
