#pragma once

#include <QDialog>
#include <vector>

#include "desktop/database/workspace.h"
#include "history/drivers/driver_activity.h"

class QPushButton;
class QSpinBox;
class QTableWidget;

namespace desktop {

/// Asks for a folder and writes everything that is held on a driver into it.
void ExportDriverData(Workspace& workspace, const std::string& code, QWidget* parent);
/// Asks twice, then replaces the driver by a code without a name, for good. False when the user gives up.
bool EraseDriverData(Workspace& workspace, const std::string& code, QWidget* parent);

/// The drivers on whom nothing has happened for longer than the office's period. Accepted when one was
/// erased.
class QuietDriversDialog : public QDialog {
  Q_OBJECT

 public:
  QuietDriversDialog(Workspace& workspace, QWidget* parent);

 private:
  void Build();
  void Fill();
  void KeepYears();
  std::string Chosen() const;

  Workspace& workspace_;
  std::vector<history::QuietDriver> drivers_;
  QSpinBox* years_;
  QTableWidget* table_;
  QPushButton* export_;
  QPushButton* erase_;
  bool erased_ = false;
};

}  // namespace desktop
