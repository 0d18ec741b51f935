#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/table/table_reader.h"

namespace exchange {

/// The cells of a row in one text, for holding many rows.
void PackCells(const std::vector<TableCell>& cells, std::string& packed);
/// The cells again; `cells` keeps its memory from row to row.
void UnpackCells(std::string_view packed, std::vector<TableCell>& cells);

}  // namespace exchange
