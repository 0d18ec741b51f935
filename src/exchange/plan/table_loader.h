#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "exchange/plan/cell_store.h"
#include "exchange/plan/plan_row.h"
#include "exchange/profile/profile.h"
#include "exchange/table/table_reader.h"
#include "exchange/values/number_texts.h"

namespace exchange {

/// The rows of a sheet as a profile sees them, and what its values tell of how they are written.
struct LoadedTable {
  std::vector<TableRow> above;  // titles and the header
  std::vector<std::string> header;
  std::vector<PlanRow> rows;
  CellStore cells;                              // of the rows
  std::unordered_map<std::uint32_t, Why> whys;  // of those rows that have any, by their place
  std::vector<std::string> sections = {""};     // by `PlanRow::section`
  DateOrders orders;
  DecimalMarks marks;

  /// None: an empty one.
  const Why& WhyOf(std::size_t row) const {
    static const Why none;
    const auto found = whys.find(static_cast<std::uint32_t>(row));
    return found == whys.end() ? none : found->second;
  }
  void SetWhy(std::size_t row, Why why) {
    if (why.reason.empty())
      whys.erase(static_cast<std::uint32_t>(row));
    else
      whys.insert_or_assign(static_cast<std::uint32_t>(row), std::move(why));
  }
};

/// Goes to the profile's sheet and reads it. Throws std::runtime_error when there is no such sheet, or what
/// the reader throws.
LoadedTable LoadTable(TableReader& reader, const Profile& profile, const Progress& progress);

}  // namespace exchange
