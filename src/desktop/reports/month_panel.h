#pragma once

#include <QWidget>
#include <vector>

#include "desktop/database/background_reader.h"
#include "desktop/database/workspace.h"
#include "reports/pages/mes.h"

class QGridLayout;
class QLabel;

namespace desktop {

/// The running month on the start page: what it cost and used, beside the months it is measured by, and the
/// leasing contracts that run away. Hidden while there is nothing to tell.
class MonthPanel : public QWidget {
  Q_OBJECT

 public:
  explicit MonthPanel(QWidget* parent);

  /// Reads it anew, away from the window; null shows nothing.
  void Refresh(Workspace* workspace);
  void Show(const reports::ResumoDoMes& month);
  /// What it says, line by line.
  QStringList Lines() const { return lines_; }
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QLabel* AddLabel(const QString& text, int row, int column, bool muted = false);
  void PlaceYears(bool beside);
  int LeastWidth(bool beside);

  QGridLayout* grid_;
  std::vector<QLabel*> years_;  // from the second row on, every second one
  int narrow_ = 0;
  int wide_ = 0;
  QStringList lines_;
  ReadTicket reading_;
};

}  // namespace desktop
