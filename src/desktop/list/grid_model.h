#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <map>
#include <memory>

#include "desktop/list/row_order.h"
#include "desktop/list/table_source.h"

namespace desktop {

/// The Qt model of any table: the source's columns, its rows in the order and choice of the view, and the
/// headings of groups between them. Cells are read as they are painted. A cell that can't be read is empty,
/// and the error goes to `on_error`, once a refresh.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// The band of a row as a `QColor`, and its order, for whoever paints it; true at a group's heading.
  enum Role : int { kBandColor = Qt::UserRole, kBandOrder, kHeading };

  explicit GridModel(std::unique_ptr<TableSource> source, QObject* parent = nullptr);

  TableSource& source() const { return *source_; }
  const RowOrder& order() const { return order_; }
  /// Looks at the source anew: columns, rows, sort and search.
  void Refresh();
  /// Orders the rows anew by what a change does; what can't be read on the way goes to `on_error`. The error
  /// of a filter that can't be read is thrown.
  void Reorder(const std::function<void(RowOrder&)>& change);
  /// Reads further rows until the time of one idle slice is used; false when all are at hand.
  bool ReadAhead();

  /// The one column that the user can type into; nothing for none.
  void SetEditable(std::optional<std::size_t> column) { editable_ = column; }
  std::optional<std::size_t> editable() const { return editable_; }
  /// Told what was typed into a row; false refuses it.
  std::function<bool(long row, const QString& text)> on_edit;
  std::function<void(const std::exception&)> on_error;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QVariant BandData(long row, int role) const;
  QVariant HeadingData(const lists::RowGroup& group, std::size_t column, int role) const;
  QString Subtotal(const lists::RowGroup& group, std::size_t column) const;
  void Reported(const std::exception& error) const;

  std::unique_ptr<TableSource> source_;
  RowOrder order_;
  std::optional<std::size_t> editable_;
  mutable std::map<std::pair<std::string, std::size_t>, QString> subtotals_;
  mutable bool failed_ = false;
};

}  // namespace desktop
