#pragma once

#include <QString>
#include <vector>

#include "desktop/list/table_source.h"
#include "exchange/export/export_table.h"

class QWidget;

namespace desktop {

/// Rows of a source with the columns that are shown, for a file or the clipboard; values are what they are,
/// and not how they look.
exchange::ExportTable TableOf(const TableSource& source, const std::vector<long>& rows, const QString& title);

/// Asks for the file that a table goes to, XLSX, ODS or CSV; empty for none.
QString AskForTableFile(QWidget* parent, const QString& title);
/// Writes rows in the format that the file's ending means. Throws when it can't be written; the
/// file is then as it was.
void ExportRows(const QString& file, const TableSource& source, const std::vector<long>& rows,
                const QString& title);

/// Puts rows on the clipboard, as text and as HTML, with their headings.
void CopyRows(const exchange::ExportTable& table);

}  // namespace desktop
