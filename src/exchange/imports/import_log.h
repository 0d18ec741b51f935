#pragma once

#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "exchange/bulk/new_rows.h"
#include "host/data_access.h"

namespace exchange {

/// An import as the table of imports keeps it.
struct ImportEntry {
  long number = 0;
  platform::Date when;
  std::string who;
  std::string kind;  // as `KindOf` knows it
  std::string file;
  std::string profile;
  std::string checksum;
  long rows = 0;
  std::optional<platform::Date> takenBack;
};

/// A row that an import stored.
struct ImportedRow {
  long line = 0;  // of the file; 0: created beside
  std::string table;
  std::string key;
  std::string mark;
  std::string transaction;
};

/// Writes down one import while it stores its rows, within its batch.
class ImportLog {
 public:
  /// Begins a new import; its number and count are the log's to give.
  ImportLog(zorCrmParvel::DataAccessRef bd, const ImportEntry& entry);
  void Add(ImportedRow row);
  /// After the last row.
  void Finish();
  long number() const { return number_; }
  long rows() const { return rows_; }

 private:
  void Flush();

  zorCrmParvel::DataAccessRef bd_;
  NewRows held_;
  long number_ = 0;
  long rows_ = 0;
};

/// All imports, the newest first.
std::vector<ImportEntry> ListImports(const zorCrmParvel::DataAccessRef& bd);
/// The import of a file with these bytes that wasn't taken back; none when there is none.
std::optional<ImportEntry> ImportedBefore(const zorCrmParvel::DataAccessRef& bd, const std::string& checksum);
/// The senders' numbers that imports with a profile have stored and not taken back.
std::unordered_set<std::string> KnownTransactions(const zorCrmParvel::DataAccessRef& bd,
                                                  const std::string& profile);

}  // namespace exchange
