#pragma once

#include "desktop/ficha/control_view.h"
#include "desktop/list/table_view.h"

namespace desktop {

/// The grid of a tab or window: rows to choose and to open.
class GridView : public ControlView {
 public:
  GridView(platform::SGGrid& grid, UserActs& acts, QWidget* parent);
  ~GridView() override;
  QWidget* widget() const override { return table_; }

 protected:
  void SyncContent() override;

 private:
  void ShowMenu(const QPoint& place);

  platform::SGGrid& grid_;
  TableView* table_;
  int revision_ = -1;
};

/// The plain grid of file lists.
class FlexGridView : public ControlView {
 public:
  FlexGridView(platform::MSFlexGrid& grid, UserActs& acts, QWidget* parent);
  QWidget* widget() const override { return table_; }

 protected:
  void SyncContent() override;

 private:
  platform::MSFlexGrid& grid_;
  TableView* table_;
  int revision_ = -1;
};

}  // namespace desktop
