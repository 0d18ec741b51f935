#include "lists/host_columns.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "host/literal.h"
#include "platform/format.h"

namespace lists {
namespace {

using platform::Cell;
using platform::FieldType;
using platform::Variant;
using zorCrmParvel::InsideLiteral;
using zorCrmParvel::Statement;

/// Most rows in one statement. Fewer are filled up to a power of two, so that there are few to prepare.
constexpr std::size_t kTogether = 256;
constexpr long kAhead = 12;  // rows

void AddKey(Statement& statement, const std::string& key, bool text) {
  // Numbers of records come from the database: they hold digits alone.
  if (text)
    statement << zorCrmParvel::fixed("N'") << zorCrmParvel::value(InsideLiteral(key))
              << zorCrmParvel::fixed("'");
  else
    statement << zorCrmParvel::value(key);
}

}  // namespace

HostCells::HostCells(const HostTable& table, zorCrmParvel::DataAccessRef bd,
                     std::function<std::string(long)> key_of)
    : table_(table), bd_(std::move(bd)), key_of_(std::move(key_of)) {}

void HostCells::Reset(long rows) {
  places_.assign(static_cast<std::size_t>(rows), {});
  if (!awaits_) Forget();
}

void HostCells::Forget() {
  blocks_.clear();
  rows_of_all_.clear();
  all_ = {};
  mapped_ = 0;
  complete_ = false;
}

zorCrmParvel::RecordsetRef HostCells::Open(const Statement& statement) {
  zorCrmParvel::RecordsetRef rows;
  bd_->AbrirLeitura("", statement, rows);
  ++statements_;
  blocks_.push_back(rows);
  return rows;
}

void HostCells::Take(zorCrmParvel::RecordsetRef all) {
  Forget();
  std::fill(places_.begin(), places_.end(), Place());
  blocks_.push_back(all);
  all_ = std::move(all);
  MapAll();
  complete_ = true;
}

void HostCells::MapAll() {
  for (; mapped_ < all_->RowsAtHand(); ++mapped_)
    rows_of_all_.emplace(all_->CellAt(mapped_, 0).ToText(), static_cast<std::uint32_t>(mapped_));
}

void HostCells::Prepare(const std::vector<long>& rows) {
  if (complete_ || awaits_) return;
  std::vector<std::pair<std::string, long>> wanted;
  for (long row : rows)
    if (row >= 0 && places_.at(static_cast<std::size_t>(row)).block == 0)
      wanted.emplace_back(key_of_(row), row);
  for (std::size_t begin = 0; begin < wanted.size(); begin += kTogether) {
    const std::size_t end = std::min(begin + kTogether, wanted.size());
    Statement statement{zorCrmParvel::fixed(table_.select), " WHERE ", zorCrmParvel::fixed(table_.key_field),
                        " IN ("};
    for (std::size_t i = 0; i < std::bit_ceil(end - begin); ++i) {
      if (i > 0) statement << ", ";
      AddKey(statement, wanted[std::min(begin + i, end - 1)].first, table_.key_is_text);
    }
    statement << ")";
    Add(statement, {wanted.begin() + static_cast<std::ptrdiff_t>(begin),
                    wanted.begin() + static_cast<std::ptrdiff_t>(end)});
  }
}

void HostCells::Add(const Statement& statement, const std::vector<std::pair<std::string, long>>& wanted) {
  const zorCrmParvel::RecordsetRef read = Open(statement);
  const auto block = static_cast<std::uint32_t>(blocks_.size());
  while (read->FetchMore(kTogether)) {
  }
  std::unordered_map<std::string, std::uint32_t> found;
  for (std::size_t i = 0; i < read->RowsAtHand(); ++i)
    found.emplace(read->CellAt(i, 0).ToText(), static_cast<std::uint32_t>(i));
  for (const auto& [key, row] : wanted) {
    const auto at = found.find(key);
    places_[static_cast<std::size_t>(row)] = {block, at == found.end() ? kGone : at->second};
  }
}

bool HostCells::PrepareMore(std::size_t rows) {
  if (complete_ || awaits_ || places_.empty()) return false;
  if (!all_) all_ = Open(Statement{zorCrmParvel::fixed(table_.select)});
  const bool more = all_->FetchMore(rows);
  MapAll();
  complete_ = !more;
  return more;
}

void HostCells::PrepareAll() {
  constexpr std::size_t kSlice = 10000;
  while (PrepareMore(kSlice)) {
  }
}

const HostCells::Place& HostCells::PlaceOf(long row) {
  static const Place kNowhere{0, kGone};
  Place& place = places_.at(static_cast<std::size_t>(row));
  if (place.block != 0) return place;
  if (awaits_ && !complete_) return kNowhere;
  if (!complete_) {
    Prepare({row});
    return place;
  }
  const auto found = rows_of_all_.find(key_of_(row));
  const auto block = std::find(blocks_.begin(), blocks_.end(), all_) - blocks_.begin();
  place = {static_cast<std::uint32_t>(block + 1), found == rows_of_all_.end() ? kGone : found->second};
  return place;
}

/// A column is read in the order of the list, which is another than that in memory: what comes soon is called
/// for from there in time.
void HostCells::CallFor(long row, std::size_t column) const {
  if (static_cast<std::size_t>(row) >= places_.size()) return;
  const Place& place = places_[static_cast<std::size_t>(row)];
  if (place.block != 0 && place.row != kGone)
    __builtin_prefetch(&blocks_[place.block - 1]->CellAt(place.row, column + 1));
}

const Cell* HostCells::CellOf(long row, std::size_t column) {
  const Place& place = PlaceOf(row);
  CallFor(row + kAhead, column);
  if (place.row == kGone) return nullptr;
  const Cell& cell = blocks_[place.block - 1]->CellAt(place.row, column + 1);
  if (cell.IsNull() || (cell.type() == FieldType::kDate && cell.integer() == 0)) return nullptr;
  return &cell;
}

Variant HostCells::Value(long row, std::size_t column) {
  const Cell* cell = CellOf(row, column);
  return cell == nullptr ? Variant(Variant::Null{}) : cell->ToVariant();
}

std::optional<Kind> HostCells::KindOf(std::size_t column) const {
  return *table_.columns[column].mask == '\0' ? std::nullopt : std::optional(Kind::kNumber);
}

std::string HostCells::Shown(long row, std::size_t column) {
  const Cell* cell = CellOf(row, column);
  if (cell == nullptr) return {};
  const char* mask = table_.columns[column].mask;
  return *mask == '\0' ? cell->ToText() : platform::FormatNumber(cell->ToVariant(), mask);
}

}  // namespace lists
