#include "sqlserver/rows/walk_recordset.h"

#include <algorithm>

#include "platform/text.h"
#include "sqlserver/rows/select_recordset.h"
#include "tsql/lexer.h"

namespace sqlserver {
namespace {

using platform::EqualsIgnoringCase;

/// Where the words of a walk stand in its text.
struct Places {
  std::size_t select = 0;  // behind SELECT
  std::size_t from = 0;
  std::size_t order = 0;
  bool left = false;  // between FROM and ORDER there is a LEFT (…)
};

Places PlacesIn(const std::string& statement) {
  Places places;
  tsql::Lexer lexer(statement);
  for (tsql::Token token = lexer.Next(); token.kind != tsql::TokenKind::kEnd; token = lexer.Next()) {
    if (places.select == 0) places.select = token.end;
    if (places.from == 0 && EqualsIgnoringCase(token.text, "from")) places.from = token.begin;
    if (EqualsIgnoringCase(token.text, "order")) places.order = token.begin;
    if (EqualsIgnoringCase(token.text, "left")) places.left = true;
  }
  return places;
}

}  // namespace

std::optional<Walk> Walk::Of(const std::string& statement, const tsql::Select& select) {
  if (select.cores.size() != 1 || select.orderBy.empty()) return {};
  const tsql::SelectCore& core = select.cores.front();
  if (!core.from || !core.joins.empty() || !core.where || core.top || core.distinct) return {};
  const Places places = PlacesIn(statement);
  if (!places.left || places.from == 0 || places.order < places.from) return {};
  Walk walk;
  walk.all = statement;
  walk.first = statement;
  walk.first.insert(places.select, " TOP " + std::to_string(kFirstRows));
  walk.count = "SELECT COUNT(*) AS n " + statement.substr(places.from, places.order - places.from);
  return walk;
}

WalkRecordset::WalkRecordset(std::shared_ptr<Session> session, Walk walk)
    : session_(std::move(session)), walk_(std::move(walk)) {
  session_->Read(walk_.first, [this](ResultReader& result) {
    Opened(result.fields());
    result.ReadAll(store());
  });
  whole_ = store().rows() < Walk::kFirstRows;
}

bool WalkRecordset::Reach(std::size_t row) {
  if (row >= store().rows() && !whole_) ReadAll();
  return row < store().rows();
}

/// The rows behind those that are here.
void WalkRecordset::ReadAll() {
  SelectRecordset all(*session_, walk_.all);
  for (std::size_t row = store().rows(); row < all.RowsAtHand(); ++row) {
    store().AddRow();
    for (std::size_t i = 0; i < fields_.size(); ++i) store().Put(row, i, all.CellAt(row, i));
  }
  whole_ = true;
}

std::size_t WalkRecordset::Count() {
  if (whole_) return store().rows();
  if (!count_) {
    SelectRecordset count(*session_, walk_.count);
    count_ = static_cast<std::size_t>(count.Fields(0).Value().ToLong());
  }
  return *count_;
}

}  // namespace sqlserver
