#pragma once

#include <QDialog>
#include <string>

#include "platform/screen/dialogs.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace desktop {

class TableView;

/// The lookup list: typing narrows the rows, Enter or a double click chooses one, Escape none.
class LookupDialog : public QDialog {
  Q_OBJECT

 public:
  /// The list's statement has been run. Error 91 when it hasn't.
  LookupDialog(platform::ListaPesquisa& list, QWidget* parent);

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

  platform::ListaPesquisa& list_;
  QLineEdit* search_;
  TableView* table_;
  QLabel* count_;
  QPushButton* choose_;
};

}  // namespace desktop
