#pragma once

#include <QAbstractTableModel>

#include "history/view/browser.h"

namespace desktop {

/// The operations of the history as rows of a table: what was done, by whom, when.
class OperationsModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  OperationsModel(std::shared_ptr<history::KeepingStore> store, QObject* parent);

  history::Browser& browser() { return browser_; }
  /// Begins anew.
  void Ask(history::Filter filter);
  /// What was read on is shown below.
  void Take(history::Slice slice);
  const history::Operation* At(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  history::Browser browser_;
  int shown_ = 0;
};

}  // namespace desktop
