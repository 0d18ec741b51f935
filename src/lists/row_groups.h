#pragma once

#include <vector>

#include "lists/row_order.h"

namespace lists {

/// Rows put together by what a column holds, dates by their month; each group keeps the rows' order. Groups
/// come in the order of what they hold, the one of rows with nothing there first, under "(sem valor)".
std::vector<RowGroup> GroupsOf(Column& column, const std::vector<long>& rows);

}  // namespace lists
