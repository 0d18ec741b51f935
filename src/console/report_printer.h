#pragma once

#include <iosfwd>

#include "console/list_printer.h"
#include "reports/tables/tabela.h"

namespace console {

/// Prints a report: aligned tables one below the other; its first table as CSV (semicolons); or all as JSON,
/// whose numbers have a point and whose absent figures are null.
void PrintReport(std::ostream& out, const reports::Relatorio& report, Output format);
void PrintReportTable(std::ostream& out, const reports::Tabela& table);

}  // namespace console
