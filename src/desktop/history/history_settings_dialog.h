#pragma once

#include <QDialog>

#include "desktop/database/workspace.h"

class QCheckBox;
class QDateEdit;
class QLabel;
class QSpinBox;

namespace desktop {

/// How long the history is kept, what it holds and takes, and its clearing. What is settled here holds for
/// everybody who works on the database.
class HistorySettingsDialog : public QDialog {
  Q_OBJECT

 public:
  HistorySettingsDialog(Workspace& workspace, QWidget* parent);

 private:
  void Build();
  void ShowSize();
  void Keep();
  void Clear();

  Workspace& workspace_;
  QCheckBox* records_;
  QSpinBox* years_;
  QSpinBox* document_years_;
  QLabel* size_;
  QDateEdit* before_;
};

}  // namespace desktop
