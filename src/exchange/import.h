#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/csv_reader.h"
#include "platform/currency.h"
#include "platform/date.h"
#include "store/store.h"

namespace exchange {

enum class ColumnKind { kText, kNumber, kInteger, kDate };

/// A column that a file may have.
struct ImportColumn {
  const char* name;
  ColumnKind kind = ColumnKind::kText;
  int limit = 0;  // characters of a text
  bool required = false;
};

/// Why a row isn't taken.
struct Refusal {
  std::string column;
  std::string reason;
};

/// One row of a file, its fields already checked against the kinds of their columns. A column that the file
/// lacks, and an empty field, give an empty text, no number and no date.
class ImportRow {
 public:
  struct Field {
    std::string_view name;
    bool given = false;
    std::string text;
    std::optional<platform::Currency> number;
    std::optional<platform::Date> date;
  };
  explicit ImportRow(const std::vector<ImportColumn>& columns);
  ImportRow() = default;

  /// The field of a column by its place, for whoever fills the row.
  Field& at(std::size_t column) { return fields_[column]; }
  const std::string& text(std::string_view column) const { return field(column).text; }
  std::optional<platform::Currency> number(std::string_view column) const { return field(column).number; }
  std::optional<platform::Date> date(std::string_view column) const { return field(column).date; }
  /// A whole number, 0 when the field is empty. Throws Refusal when it doesn't fit.
  std::int16_t integer(std::string_view column) const;
  /// True when the file has the column.
  bool given(std::string_view column) const { return field(column).given; }

  /// The sender numbers the rows, and this number is new: equal rows aren't repetitions.
  bool numbered = false;

 private:
  const Field& field(std::string_view column) const;

  std::vector<Field> fields_;
};

enum class Outcome { kAdded, kKnown };

/// What rows of one kind are and how they are stored.
class ImportTarget {
 public:
  virtual ~ImportTarget() = default;
  virtual const std::vector<ImportColumn>& Columns() const = 0;
  /// Of events: the vehicles that rows will name, and between which moments. What is stored of them can then
  /// be read for many at once.
  virtual void Expect(const std::vector<std::string>& /*plates*/, platform::Date /*oldest*/,
                      platform::Date /*newest*/) {}
  /// Checks a row by the rules of the ficha's fields; of one that is new, `Write` follows, or may follow
  /// where the target judges alone. Throws Refusal when a rule fails.
  virtual Outcome Judge(const ImportRow& row) = 0;
  /// Stores the row that was judged last.
  virtual void Write() = 0;
  /// True when rows can be judged that follow others which were judged and not written.
  virtual bool JudgesAlone() const { return false; }
  Outcome Store(const ImportRow& row) {
    const Outcome outcome = Judge(row);
    if (outcome == Outcome::kAdded) Write();
    return outcome;
  }
  /// After the last row.
  virtual void Finish() {}
};

/// The target of a name that users give ("viaturas", "motoristas", "gastos"); null for another one.
std::unique_ptr<ImportTarget> MakeImportTarget(const std::string& what,
                                               const zorCrmParvel::DataAccessRef& bd);
/// The columns of a kind that `MakeImportTarget` knows.
const std::vector<ImportColumn>& ColumnsOfKind(const std::string& what);
/// The names that `MakeImportTarget` knows, for messages.
std::string ImportTargetNames();

struct ImportResult {
  long added = 0;
  long known = 0;
  long refused = 0;
  long number = 0;  // of the table of imports; 0: it isn't there
};

/// What an import is called in the table of imports.
struct ImportedFile {
  std::string kind;  // as `MakeImportTarget` knows it
  std::string name;
  std::string checksum;
  std::string who;
  /// Writes what is to be kept with it, within its batch, after the last row.
  std::function<void(long number, long rows)> beforeCommit;
};

/// Imports a CSV file: all rows that pass their rules at once, or nothing when the file can't be read, the
/// disk fails or the report can't be written. The report names each refused row with its line, column and
/// reason. `simulate` stores nothing. `decimal` is the file's decimal mark; without it, it is found out, and
/// std::runtime_error thrown when a number can be read in two ways.
ImportResult ImportCsv(zorCrmParvel::Store& database, ImportTarget& target, std::istream& file, bool simulate,
                       std::ostream& report, std::optional<char> decimal = std::nullopt);
/// As `ImportCsv` does, and writes into the table of imports what was stored: from there it can be taken
/// back. A database without that table, and a file without a row that is new, leave nothing to take back.
ImportResult ImportCsvToLog(const platform::Ref<zorCrmParvel::Store>& database, const ImportedFile& about,
                            std::istream& file, std::ostream& report,
                            std::optional<char> decimal = std::nullopt);

}  // namespace exchange
