#pragma once

#include <deque>
#include <string>

#include "exchange/bulk/row_collector.h"
#include "exchange/imports/import_log.h"
#include "exchange/profile/import_kinds.h"
#include "host/data_access.h"

namespace exchange {

/// The statement that reads rows of an import's table by a condition on its key, or one row by its key.
zorCrmParvel::Statement RowByKey(const char* what, const std::string& table, const std::string& key);
/// The key column that the database numbers; empty for tables with keys of their own.
std::string NumberedKeyOf(const std::string& table);

/// Writes the rows that an import stores into its log, with their numbers and marks. Within the import's
/// batch.
class StoredRows {
 public:
  /// `log` outlives it.
  StoredRows(const zorCrmParvel::DataAccessRef& bd, const ImportKind& kind, ImportLog& log);

  /// What the rows are to be written through: events are held back and sent many at a time.
  const zorCrmParvel::DataAccessRef& through() const { return through_; }
  /// The row that was written last; `key` of tables with keys of their own.
  void Add(const std::string& key, long line, const std::string& transaction);
  /// A row by its key: a code that was created beside, of no line of the file.
  void AddByKey(const std::string& table, const std::string& key, long line = 0);
  /// After the last row. Throws std::runtime_error when one that was written isn't there.
  void Finish();

 private:
  struct Waiting {
    long line;
    std::string transaction;
  };
  void Sent(std::int32_t number, std::string mark);

  zorCrmParvel::DataAccessRef bd_;
  const ImportKind& kind_;
  ImportLog& log_;
  std::shared_ptr<RowCollector> collector_;  // null for tables with keys of their own
  zorCrmParvel::DataAccessRef through_;
  std::deque<Waiting> waiting_;  // written, not sent yet
};

}  // namespace exchange
