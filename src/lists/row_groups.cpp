#include "lists/row_groups.h"

#include <cmath>

#include "lists/condition.h"
#include "platform/date.h"
#include "platform/text.h"

namespace lists {
namespace {

constexpr int kMonths = 12;

struct Key {
  double order;
  std::string title;
};

Key MonthOf(double seconds) {
  const auto day = platform::Date::FromSeconds(static_cast<std::int64_t>(seconds));
  return {static_cast<double>(day.year() * kMonths + day.month()),
          platform::Padded(day.month(), 2) + "-" + platform::Padded(day.year(), 4)};
}

/// Groups by numbers or months: those that have the same number.
std::vector<RowGroup> ByNumber(Column& column, const std::vector<long>& rows) {
  std::map<double, RowGroup> groups;
  RowGroup nothing{.title = kNothingThere, .rows = {}};
  const bool dates = column.kind() == Kind::kDate;
  for (long row : rows) {
    const auto at = static_cast<std::size_t>(row);
    const double number = column.numbers()[at];
    if (std::isnan(number)) {
      nothing.rows.push_back(row);
      continue;
    }
    const Key key = dates ? MonthOf(number) : Key{number, {}};
    RowGroup& group = groups[key.order];
    if (group.rows.empty()) group.title = dates ? key.title : column.texts()[column.codes()[at]];
    group.rows.push_back(row);
  }
  std::vector<RowGroup> all;
  if (!nothing.rows.empty()) all.push_back(std::move(nothing));
  for (auto& [order, group] : groups) all.push_back(std::move(group));
  return all;
}

}  // namespace

std::vector<RowGroup> GroupsOf(Column& column, const std::vector<long>& rows) {
  if (column.kind() != Kind::kText) return ByNumber(column, rows);
  const std::vector<std::uint32_t>& ranks = column.ranks();
  const std::vector<std::uint32_t>& codes = column.codes();
  std::vector<RowGroup> groups(ranks.size());
  for (long row : rows) {
    const std::uint32_t code = codes[static_cast<std::size_t>(row)];
    RowGroup& group = groups[ranks[code]];
    const std::string& title = column.texts()[code];
    if (group.rows.empty()) group.title = title.empty() ? kNothingThere : title;
    group.rows.push_back(row);
  }
  std::erase_if(groups, [](const RowGroup& group) { return group.rows.empty(); });
  return groups;
}

}  // namespace lists
