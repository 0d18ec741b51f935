#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/date.h"

namespace exchange {

/// What a cell holds. A formula is what was stored as its value; `kFormulaWithoutValue` where nothing was.
enum class CellKind { kEmpty, kText, kNumber, kDate, kTruth, kError, kFormulaWithoutValue };

struct TableCell {
  CellKind kind = CellKind::kEmpty;
  /// UTF-8, a face of the cell whatever its kind. In a text file the field as it stands; a number is written
  /// as short as it can be, with a point; a date as `platform::Date::ToText` has it; a truth "VERDADEIRO" or
  /// "FALSO"; an error as the file names it ("#DIV/0!").
  std::string text;
  double number = 0;  // of kNumber; 1 or 0 of kTruth
  /// Of kDate, read in the file's calendar (1900 or 1904) already; a time alone is on the zero date.
  platform::Date date = {};
  bool formula = false;
};

struct TableRow {
  long line = 0;  // from 1, in the text file (where the row begins) or in the sheet
  bool hidden = false;
  std::vector<TableCell> cells;  // as many as the row has; the rest of the columns are empty
};

struct SheetInfo {
  std::string name;
  bool hidden = false;
};

enum class TextEncoding { kUtf8, kUtf16LittleEndian, kUtf16BigEndian, kWindows1252 };

/// What the user tells of a text file; what isn't told is found out. Other kinds of file tell it themselves.
struct TableOptions {
  std::optional<char> separator;
  std::optional<TextEncoding> encoding;
};

/// What the file is.
struct TableFacts {
  std::string format;                    // "CSV", "XLSX", "ODS", "XLS", "HTML"
  std::optional<TextEncoding> encoding;  // of text files alone, like the separator
  std::optional<char> separator;
  bool calendar1904 = false;
};

/// A table in a file, row by row. All that fails throws std::runtime_error in Portuguese, for the operator.
class TableReader {
 public:
  virtual ~TableReader() = default;

  virtual const TableFacts& Facts() const = 0;
  /// At least one, in the file's order; a text file has one with its file's name.
  virtual const std::vector<SheetInfo>& Sheets() const = 0;
  /// Goes to the first row of a sheet, also of the one that is open. The first sheet is open at the
  /// beginning.
  virtual void Open(std::size_t sheet) = 0;
  /// The next row in which anything stands; false at the end.
  virtual bool Next(TableRow& row) = 0;
  /// Those of the open sheet that the file hides; columns beyond its end are visible.
  virtual const std::vector<bool>& HiddenColumns() const = 0;
  /// How much of the open sheet has been read, 0 to 1.
  virtual double Progress() const = 0;
};

/// Opens a file of any kind: its content tells the kind, not its name. Throws std::runtime_error, which says
/// what to do, at a file that is no table, is cut short, protected by a password or too large when it is
/// unpacked.
std::unique_ptr<TableReader> OpenTable(const std::string& file, const TableOptions& options = {});

/// "UTF-8", "UTF-16 (LE)", "UTF-16 (BE)", "Windows-1252".
std::string NameOf(TextEncoding encoding);

}  // namespace exchange
