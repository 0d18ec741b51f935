#pragma once

#include <memory>
#include <string>

#include "exchange/table/table_reader.h"

namespace exchange {

/// A workbook of before 2007 (BIFF 5 and 8). Keeps the file in memory.
std::unique_ptr<TableReader> OpenXls(const std::string& file);

}  // namespace exchange
