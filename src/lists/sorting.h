#pragma once

#include <string>
#include <vector>

#include "lists/column.h"

namespace lists {

/// All rows by a column. Equal rows keep the table's own order; rows with nothing come first, or last when
/// the order is descending.
std::vector<long> Sorted(Column& column, bool descending);

/// False when no text of a kind can hold a folded word: numbers and dates have no letters.
bool CanHold(Kind kind, const std::string& word);

}  // namespace lists
