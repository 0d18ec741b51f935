#pragma once

#include <string>
#include <vector>

#include "lists/host_columns.h"
#include "lists/row_order.h"

namespace lists {

/// A column that the footer says something of.
struct SummedColumn {
  std::size_t column;
  std::string caption;
  const char* mask;
  Summed summed;
};

/// What columns come to over rows: "Custo: soma 1.234,50, média 30,86 · Km: média 12.000". Columns without a
/// number are left out.
std::string FooterText(const RowOrder& order, const std::vector<SummedColumn>& columns,
                       const std::vector<long>& rows);

/// What a column comes to over the rows of a group: its sum, or "⌀ 12.000", its mean. Empty without a number.
std::string SubtotalText(const RowOrder& order, const SummedColumn& column, const std::vector<long>& rows);

}  // namespace lists
