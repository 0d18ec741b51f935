#pragma once

#include <QString>
#include <vector>

#include "desktop/list/table_source.h"

namespace desktop {

/// Writes rows with the columns that are shown as CSV that a spreadsheet opens: UTF-8 with its mark,
/// semicolons, one line a row; a text that begins like a formula has an apostrophe before it. Raises a
/// run-time error when the file can't be written; it is then as it was.
void WriteCsv(const QString& file, const TableSource& source, const std::vector<long>& rows);

}  // namespace desktop
