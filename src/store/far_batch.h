#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "sqlserver/bulk/table_changes.h"
#include "store/near_tables.h"
#include "store/table_watch.h"

namespace store {

/// Writes the changes of one table to the server; the numbers of the rows added where it numbers them.
using ApplyChanges = std::function<std::vector<long>(const sqlserver::TableChanges& changes)>;
/// The numbers that a table's rows got on the server, by those that they had in memory; by table.
using GivenNumbers = std::map<std::string, std::map<long, long>>;

/// Work on many rows of a server, done in memory: the tables that it touches are taken over whole, and in the
/// end what has become of their rows is sent, many rows a trip.
class FarBatch {
 public:
  static constexpr std::size_t kMostRows = 200000;  // of a table that is taken over

  /// `schema`: as of `NearTables`. The server outlives this.
  FarBatch(zorCrmParvel::Store& server, const std::string& schema);

  /// Takes over the tables of a statement. False when one can't be: the statement is the server's.
  bool Covers(const std::string& statement);
  /// The database in memory, for statements that are covered.
  zorCrmParvel::Store& memory() { return tables_.memory(); }
  void Written(const std::string& statement) { written_.merge(TablesIn(statement)); }
  /// Sends what has changed, within a batch of the server's.
  GivenNumbers Send(const ApplyChanges& apply);

 private:
  sqlserver::TableChanges ChangesOf(const tsql::Table& table, std::vector<long>& numbers);
  void Renumber(sqlserver::TableChanges& changes) const;

  NearTables tables_;
  TableNames written_;
  GivenNumbers given_;
};

}  // namespace store
