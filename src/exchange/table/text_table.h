#pragma once

#include <memory>
#include <string>

#include "exchange/table/table_reader.h"

namespace exchange {

/// A file of text whose fields a character parts; one sheet. Keeps one row in memory.
std::unique_ptr<TableReader> OpenTextTable(const std::string& file, const TableOptions& options);

/// The character that parts most of the first rows into equally many fields: semicolon, tab, bar, comma,
/// caret or tilde; a semicolon where none does. `sample` is UTF-8.
char DetectSeparator(const std::string& sample);

}  // namespace exchange
