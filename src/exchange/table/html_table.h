#pragma once

#include <memory>
#include <string>

#include "exchange/table/table_reader.h"

namespace exchange {

/// A page of HTML: its tables, those without another within, are the sheets.
std::unique_ptr<TableReader> OpenHtml(const std::string& file);

}  // namespace exchange
