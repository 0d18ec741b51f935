#pragma once

#include <QString>

#include "desktop/list/row_order.h"

namespace desktop {

/// Writes the rows and columns shown as CSV that a spreadsheet opens: UTF-8 with its mark, semicolons, one
/// line a row; a text that begins like a formula has an apostrophe before it. Raises a run-time error when
/// the file can't be written; it is then as it was.
void WriteCsv(const QString& file, const TableSource& source, const RowOrder& order);

}  // namespace desktop
