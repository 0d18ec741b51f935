#pragma once

#include <string>
#include <vector>

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
  std::vector<std::string> sections = {""};  // by `PlanRow::section`
  DateOrders orders;
  DecimalMarks marks;
};

/// Goes to the profile's sheet and reads it. Throws std::runtime_error when there is no such sheet, or what
/// the reader throws.
LoadedTable LoadTable(TableReader& reader, const Profile& profile, const Progress& progress);

}  // namespace exchange
