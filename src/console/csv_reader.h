#pragma once

#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace console {

/// What was found out about a CSV file before its rows are read.
struct CsvShape {
  char separator = ';';
  bool utf8 = true;  // else Windows-1252
  char decimal = ',';
  std::vector<std::string> header;
};

/// Reads through a whole file to tell its separator, encoding and decimal mark, and rewinds it. Keeps one row
/// in memory. Where nothing tells, a file is Portuguese: semicolons and decimal commas. Throws
/// std::runtime_error on a file without a header.
CsvShape DetectCsv(std::istream& file);

/// Reads a CSV file row by row, as UTF-8. Fields may be quoted, with doubled quotes and line breaks inside.
class CsvReader {
 public:
  CsvReader(std::istream& file, const CsvShape& shape) : file_(file), shape_(shape) {}

  /// The next row that isn't blank; false at the end. A quote that never closes takes the rest of the file.
  bool Next(std::vector<std::string>& row);
  /// The line on which the row read last began, from 1.
  long line() const { return rowLine_; }

 private:
  bool ReadRow(std::vector<std::string>& row);
  std::string ToUtf8(std::string field) const;

  std::istream& file_;
  const CsvShape& shape_;
  long line_ = 1;
  long rowLine_ = 1;
};

/// A text as a number of the file, in the regional form that the platform reads: "1.234,5". Empty when the
/// text is no number of the file: letters, or a grouping mark where no group can end.
std::string RegionalNumber(std::string_view text, char decimal);

}  // namespace console
