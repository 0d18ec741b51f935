#pragma once

#include <string>
#include <vector>

#include "exchange/export/export_table.h"

namespace exchange {

/// A cell as a person reads it: decimals by the column with a comma, no grouping, dates day first with a time
/// where there is one, "Sim" and "Não"; the zero date is empty.
std::string FaceOf(const ExportCell& cell, const ExportColumn& column);
/// True where a date in the column has a time of day.
bool HasTimes(const ExportTable& table, std::size_t column);
/// The widths of the columns in characters: their own, or what the heading and the longest of the first rows
/// need.
std::vector<int> WidthsOf(const ExportTable& table);

/// Texts for a document of XML or HTML: marks written out, control characters left out.
std::string MarkedUp(const std::string& text);

// The writers of each format; they throw std::runtime_error when the file can't be written.
void WriteXlsx(const ExportTable& table, const std::string& file);
void WriteOds(const ExportTable& table, const std::string& file);
void WriteCsvTable(const ExportTable& table, const std::string& file);

}  // namespace exchange
