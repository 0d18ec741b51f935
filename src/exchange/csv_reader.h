#pragma once

#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace exchange {

/// What was found out about a CSV file before its rows are read.
struct CsvShape {
  char separator = ';';
  bool utf8 = true;  // else Windows-1252
  std::vector<std::string> header;
};

/// Reads through a whole file to tell its separator and encoding, and rewinds it. Keeps one row in memory.
/// Where nothing tells, semicolons part the fields. Throws std::runtime_error on a file without a header.
CsvShape DetectCsv(std::istream& file);

/// Reads a CSV file row by row, as UTF-8. Fields may be quoted, with doubled quotes and line breaks inside.
class CsvReader {
 public:
  CsvReader(std::istream& file, const CsvShape& shape) : file_(file), shape_(shape) {}

  /// The next row that isn't blank; false at the end. Throws std::runtime_error, naming the line, at a quote
  /// that takes lines into its field and doesn't close at the field's end.
  bool Next(std::vector<std::string>& row);
  /// The lines on which the row read last began and ended, from 1.
  long line() const { return rowLine_; }
  long lastLine() const { return lastLine_; }
  /// Back to the first row.
  void Rewind();

 private:
  bool ReadRow(std::vector<std::string>& row);
  void ReadQuoted(std::string& field);

  std::istream& file_;
  const CsvShape& shape_;
  long line_ = 1;
  long rowLine_ = 1;
  long lastLine_ = 1;
};

}  // namespace exchange
