#pragma once

#include "exchange/export/export_table.h"
#include "reports/tables/tabela.h"

namespace exchange {

/// A report's table on its way to a file. Columns for machines alone are left out; absent figures and zero
/// dates are empty.
ExportTable ExportTableOf(const reports::Tabela& table, const std::string& title);

}  // namespace exchange
