#pragma once

#include <iosfwd>
#include <string>

#include "host/list_view.h"

namespace console {

enum class Output { kTable, kCsv, kJson };

/// Prints the visible columns of a list that has been started: an aligned table under the captions, or CSV
/// (semicolons) or JSON under the columns' names, with dates as yyyy-mm-dd and numbers with a point.
void PrintList(std::ostream& out, const zorCrmParvel::SGGrid& grid, Output format);

}  // namespace console
