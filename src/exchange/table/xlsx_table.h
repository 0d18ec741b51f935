#pragma once

#include <memory>
#include <string>

#include "exchange/table/table_reader.h"

namespace exchange {

/// A workbook of Office Open XML. Keeps its shared texts and a piece of the open sheet in memory.
std::unique_ptr<TableReader> OpenXlsx(const std::string& file);

}  // namespace exchange
