#pragma once

#include <iosfwd>
#include <string>

#include "exchange/export/export_table.h"
#include "host/list_view.h"
#include "platform/screen/form.h"

namespace console {

/// The form in which the terminal keeps a grid; it is never shown.
class GridForm : public platform::Form {
 public:
  platform::SGGrid Grelha{*this, "Grelha"};
};

enum class Output { kTable, kCsv, kJson };

/// Prints the visible columns of a list that has been started: an aligned table under the captions, or CSV
/// (semicolons) or JSON under the columns' names, with dates as yyyy-mm-dd and numbers with a point. In CSV a
/// text that begins like a formula has an apostrophe before it.
void PrintList(std::ostream& out, const zorCrmParvel::SGGrid& grid, Output format);

/// The same rows and columns as a table for a file.
exchange::ExportTable TableOf(const zorCrmParvel::SGGrid& grid, const std::string& title);

}  // namespace console
