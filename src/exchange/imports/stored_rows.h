#pragma once

#include <string>

#include "exchange/imports/import_log.h"
#include "exchange/profile/import_kinds.h"
#include "host/data_access.h"

namespace exchange {

/// The statement that reads rows of an import's table by a condition on its key, or one row by its key.
zorCrmParvel::Statement RowByKey(const char* what, const std::string& table, const std::string& key);
/// The key column that the database numbers; empty for tables with keys of their own.
std::string NumberedKeyOf(const std::string& table);

/// Finds again the rows that an import has just stored, and writes them into its log. Within the import's
/// batch.
class StoredRows {
 public:
  /// Before the first row is stored.
  StoredRows(zorCrmParvel::DataAccessRef bd, const ImportKind& kind);

  struct One {
    const std::string& key;  // of tables with keys of their own; of events the plate
    platform::Date date;     // of events
    long line;
    const std::string& transaction;
  };
  /// After the last row, before the first `Add`.
  void Begin();
  /// The rows in the order in which they were stored. Throws std::runtime_error when one isn't there.
  void Add(ImportLog& log, const One& row);
  /// A row by its key: a code that was created beside, of no line of the file.
  void AddByKey(ImportLog& log, const std::string& table, const std::string& key, long line = 0);

 private:
  bool Fits(const One& row);

  zorCrmParvel::DataAccessRef bd_;
  const ImportKind& kind_;
  std::int64_t last_ = 0;  // the highest number from before
  zorCrmParvel::RecordsetRef rows_;
};

}  // namespace exchange
