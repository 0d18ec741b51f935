#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "embedded/database.h"
#include "store/store.h"
#include "tsql/catalog.h"

namespace store {

/// Whole tables of a server, as they were when they were taken over, in a database in memory.
class NearTables {
 public:
  /// Whether the rows are also kept as they were when they were taken over.
  enum class Keep { kNothing, kRows };

  /// `schema`: the tables that there may be, as in `schema/tables.sql`. A table with more rows than
  /// `mostRows` stays where it is, and so does one with documents or texts of any length.
  NearTables(zorCrmParvel::Store& server, const std::string& schema, std::size_t mostRows,
             Keep keep = Keep::kNothing);

  /// Takes over those of the tables that are not here yet, each in one statement. False when one can't be:
  /// it is too large, the program does not know it, or its columns are others than the program's.
  bool Take(const std::vector<std::string>& tables);
  /// Takes over none of a table's rows, for one that is only added to: from now on `Take` refuses it. False
  /// as of `Take`; true when it is here whole.
  bool TakeNone(const std::string& table);
  /// Takes rows of a table for all of it, when only they matter. False as of `Take`.
  bool TakeOnly(const std::string& table, platform::Recordset& rows);
  /// Runs a SELECT on tables that are here.
  zorCrmParvel::RecordsetRef Open(const std::string& statement);
  zorCrmParvel::Store& memory() { return *memory_; }
  const tsql::Catalog& catalog() const { return catalog_; }
  /// The rows of a table that is here, by the catalogue's spelling, as they were.
  const zorCrmParvel::RecordsetRef& RowsTaken(const std::string& table) const { return taken_.at(table); }

 private:
  bool Bring(const std::string& table);
  bool Fill(const std::string& table, platform::Recordset& rows);

  zorCrmParvel::Store& server_;
  std::size_t mostRows_;
  Keep keep_;
  tsql::Catalog catalog_;
  std::shared_ptr<embedded::Database> memory_;
  std::map<std::string, bool> here_;  // by the catalogue's spelling; false: it can't be taken
  std::set<std::string> none_;        // tables of which no rows were taken
  std::map<std::string, zorCrmParvel::RecordsetRef> taken_;
};

}  // namespace store
