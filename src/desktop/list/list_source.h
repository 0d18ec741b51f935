#pragma once

#include <memory>

#include "desktop/list/list_catalog.h"
#include "desktop/list/sources.h"
#include "due/handled.h"
#include "lists/host_columns.h"

namespace desktop {

/// The rows of a list, with the window's own columns behind the list's; behind alerts what was done about
/// them.
class ListSource : public GridSource {
 public:
  /// `far`: the window's columns are read elsewhere and brought by `TakeOwn`.
  ListSource(platform::SGGrid& grid, const ListEntry& entry, zorCrmParvel::DataAccessRef bd, bool far);

  QString Text(long row, std::size_t column) const override;
  std::string Shown(long row, std::size_t column) const override;
  platform::Variant Value(long row, std::size_t column) const override;
  std::optional<lists::Kind> KindOf(std::size_t column) const override;
  void Prepare(const std::vector<long>& rows) const override;
  void AboutToRead(std::size_t column) const override;
  bool FetchMore(std::size_t rows) override;
  void Refresh() override;
  /// What a row of a list of alerts is of, see `due::AlertOf`.
  std::string AlertAt(long row) const;
  /// True when one of the window's own columns is shown.
  bool ShowsOwn() const;
  /// What reads those columns of all rows.
  const char* OwnStatement() const { return own_->table().select; }
  void TakeOwn(platform::RecordsetRef rows) { own_->Take(std::move(rows)); }

 private:
  bool IsOwn(std::size_t column) const { return own_ && column >= listed_; }
  bool IsHandling(std::size_t column) const { return !own_ && column >= listed_; }
  void AddHandling();

  std::unique_ptr<lists::HostCells> own_;  // null for a list without any
  std::size_t listed_ = 0;                 // the list's columns
  std::optional<std::size_t> key_;
  std::string list_;
  zorCrmParvel::DataAccessRef bd_;
  due::Handlings handlings_;  // of a list of alerts
};

}  // namespace desktop
