#pragma once

#include <QDialog>
#include <vector>

#include "exchange/plan/import_plan.h"

class QTableWidget;

namespace desktop {

/// The codes that a file names and the database lacks: for each, what would be created, which the user
/// chooses and corrects, or the code there is already that the file's word stands for.
class NewCodesDialog : public QDialog {
  Q_OBJECT

 public:
  NewCodesDialog(std::vector<exchange::NewCode> codes, const exchange::ImportKind& kind, QWidget* parent);
  /// Those that are to be created, as the user left them.
  std::vector<exchange::NewCode> Chosen() const;
  /// Those that stand for a code there is, which `code` holds.
  std::vector<exchange::NewCode> Meant() const;

 private:
  QString MeantAt(int row) const;

  std::vector<exchange::NewCode> codes_;
  QTableWidget* table_;
};

}  // namespace desktop
