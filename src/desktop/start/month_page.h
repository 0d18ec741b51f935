#pragma once

#include <vector>

#include "desktop/database/workspace.h"
#include "desktop/shell/page.h"
#include "due/month.h"

class QLabel;
class QListWidget;
class QTableWidget;

namespace desktop {

/// The calendar of what is due: a month of days, and at its side what stands in the one chosen. Enter or a
/// double click opens the ficha of the vehicle or driver.
class MonthPage : public Page {
  Q_OBJECT

 public:
  MonthPage(Workspace& workspace, QWidget* parent);

  QString Title() const override;
  QString CountText() const override;
  void Load() override;
  void TakeFocus() override;

  /// The month that is shown, by its first day.
  platform::Date month() const { return month_; }
  void ShowMonth(platform::Date day);
  const std::vector<due::DueDate>& dates() const { return dates_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  void Step(int months);
  void Fill();
  void WriteDays();
  void ShowDay();
  void GoToDay();
  platform::Date DayAt(int row, int column) const;
  void Open(int row);

  Workspace& workspace_;
  platform::Date month_;
  platform::Date first_;  // the Monday in the first cell
  std::vector<due::DueDate> dates_;
  ReadTicket reading_;
  bool is_reading_ = false;  // they are on their way
  std::vector<const due::DueDate*> of_day_;
  QLabel* title_;
  QLabel* day_;
  QTableWidget* days_;
  QListWidget* list_;
};

}  // namespace desktop
