#pragma once

#include <string>
#include <vector>

#include "exchange/table/table_reader.h"

namespace exchange {

/// Where a table begins among the rows of its sheet.
struct TableShape {
  std::size_t before = 0;           // rows above the header
  std::size_t headerRows = 1;       // 0: none
  std::vector<std::string> header;  // of headers of several rows the texts above one another, joined
};

/// Finds the header among the first rows: the row that names most columns as files do, else one of texts
/// alone above rows with numbers and dates. Rows of headings above and below it belong to it.
TableShape FindShape(const std::vector<TableRow>& rows);
/// The texts of the header rows that stand at a place.
std::vector<std::string> HeaderTexts(const std::vector<TableRow>& rows, std::size_t before,
                                     std::size_t count);

/// What a row below the header is besides one of data.
enum class RowClass { kData, kHeaderAgain, kTotal, kSection };
/// A row that begins with the word for a sum, a balance or a page; one with nothing but a text in its first
/// cells while the table has three columns or more; the header once more.
RowClass ClassOf(const TableRow& row, const std::vector<std::string>& header, std::size_t width);

/// A number, a date or a plate, whatever kind of cell it stands in.
bool LooksLikeValue(const TableCell& cell);

}  // namespace exchange
