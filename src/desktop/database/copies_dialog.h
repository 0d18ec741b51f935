#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QTableWidget;

namespace desktop {

class CopyKeeper;

/// The copies that the window made by itself, with what each holds, to choose one of them or another file to
/// be put in the place of the database.
class CopiesDialog : public QDialog {
  Q_OBJECT

 public:
  /// The keeper outlives the dialog.
  CopiesDialog(CopyKeeper& keeper, QWidget* parent);
  /// The file to restore, once the dialog has been accepted.
  const QString& file() const { return file_; }

 private:
  void Build();
  void Fill();
  void ShowHoldings();
  void RestoreChosen();
  void ChooseAnother();
  void ChooseFolder();

  CopyKeeper& keeper_;
  QTableWidget* table_;
  QLabel* holdings_;
  QLabel* folder_;
  QPushButton* restore_;
  QString file_;
};

}  // namespace desktop
