#include "desktop/list/list_source.h"

#include <algorithm>

#include "desktop/look/text.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr float kHandlingWidth = 3000;

}  // namespace

ListSource::ListSource(platform::SGGrid& grid, const ListEntry& entry, zorCrmParvel::DataAccessRef bd,
                       bool far)
    : GridSource(grid), list_(entry.key), bd_(bd) {
  if (const lists::HostTable* table = lists::HostTableOf(entry.key))
    own_ = std::make_unique<lists::HostCells>(*table, std::move(bd),
                                              [this](long row) { return GridSource::Shown(row, *key_); });
  if (own_ && far) own_->Await();
}

void ListSource::Refresh() {
  GridSource::Refresh();
  listed_ = columns_.size();
  if (!own_) return AddHandling();
  key_ = FindColumn(own_->table().key_column);
  if (!key_) return;
  own_->Reset(Rows());
  for (const lists::HostColumn& column : own_->table().columns)
    columns_.push_back({.key = column.key,
                        .caption = QString::fromUtf8(column.caption),
                        .width = column.width,
                        .hidden = column.hidden,
                        .numeric = *column.mask != '\0',
                        .own = true,
                        .mask = column.mask,
                        .summed = column.summed});
}

void ListSource::AddHandling() {
  handlings_.clear();
  if (due::AlertColumns(list_).empty() || !bd_) return;
  handlings_ = due::HandlingsOf(bd_, list_, platform::Today());
  columns_.push_back({.key = "Tratamento",
                      .caption = QStringLiteral("Tratado ou adiado"),
                      .width = kHandlingWidth,
                      .hidden = handlings_.empty(),
                      .own = true});
}

std::string ListSource::AlertAt(long row) const {
  std::vector<std::string> texts;
  for (const char* column : due::AlertColumns(list_))
    if (const auto found = FindColumn(column)) texts.push_back(GridSource::Shown(row, *found));
  return due::AlertOf(texts);
}

QString ListSource::Text(long row, std::size_t column) const { return ToQt(Shown(row, column)); }

std::string ListSource::Shown(long row, std::size_t column) const {
  if (IsHandling(column)) {
    const auto found = handlings_.find(AlertAt(row));
    return found == handlings_.end() ? std::string() : found->second.Words();
  }
  return IsOwn(column) ? own_->Shown(row, column - listed_) : GridSource::Shown(row, column);
}

platform::Variant ListSource::Value(long row, std::size_t column) const {
  if (IsHandling(column)) return Shown(row, column);
  return IsOwn(column) ? own_->Value(row, column - listed_) : GridSource::Value(row, column);
}

std::optional<lists::Kind> ListSource::KindOf(std::size_t column) const {
  if (IsHandling(column)) return {};
  return IsOwn(column) ? own_->KindOf(column - listed_) : GridSource::KindOf(column);
}

bool ListSource::ShowsOwn() const {
  if (!own_) return false;
  const std::vector<std::size_t> visible = VisibleColumns();
  return std::any_of(visible.begin(), visible.end(), [this](std::size_t column) { return IsOwn(column); });
}

void ListSource::Prepare(const std::vector<long>& rows) const {
  if (ShowsOwn()) own_->Prepare(rows);
}

void ListSource::AboutToRead(std::size_t column) const {
  if (IsOwn(column)) own_->PrepareAll();
}

bool ListSource::FetchMore(std::size_t rows) {
  return GridSource::FetchMore(rows) || (ShowsOwn() && own_->PrepareMore(rows));
}

}  // namespace desktop
