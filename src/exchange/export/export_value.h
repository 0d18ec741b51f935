#pragma once

#include "exchange/export/export_table.h"
#include "platform/variant.h"

namespace exchange {

/// A value of a list as a cell; null and the zero date are empty. `face` is how the list shows it.
ExportCell CellOf(const platform::Variant& value, const std::string& face);
/// The kind and decimals of a column, by the first of its cells that holds something: a number or date that
/// the list shows as something else ("Sim", "a definir") is a text.
void DescribeColumn(ExportTable& table, std::size_t column);

}  // namespace exchange
