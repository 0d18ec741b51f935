#pragma once

#include "desktop/list/table_view.h"
#include "desktop/print/paper_table.h"

namespace desktop {

/// A list on paper as it is on the screen: what the rows were chosen by, groups with their subtotals, of
/// closed ones nothing else, and at the end what all come to. Of several rows that are marked these alone.
PaperTable PaperOf(const TableView& table, const std::vector<long>& marked);

}  // namespace desktop
