#include "sqlserver/bulk/table_changes.h"

namespace sqlserver {

std::vector<long> WriteChanges(Session& session, const tsql::Catalog& catalog, const TableChanges& changes) {
  RowWriter writer(session, catalog.Get(changes.table), changes.fields);
  for (const auto& key : changes.removed) writer.Remove(key);
  for (const TableChanges::Change& change : changes.changed) writer.Change(change.key, change.values);
  for (const RowWriter::Values& row : changes.added) writer.Add(row, changes.numbered);
  return writer.Finish();
}

}  // namespace sqlserver
