#pragma once

#include <memory>
#include <string>

#include "exchange/table/table_reader.h"

namespace exchange {

/// A spreadsheet of OpenDocument. Keeps a piece of it in memory; to go to a sheet it reads through those
/// before it.
std::unique_ptr<TableReader> OpenOds(const std::string& file);

}  // namespace exchange
