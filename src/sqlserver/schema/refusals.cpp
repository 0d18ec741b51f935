#include "sqlserver/schema/refusals.h"

#include "platform/row_store.h"
#include "platform/runtime_error.h"
#include "sqlserver/dialect.h"

namespace sqlserver {
namespace {

using zorCrmParvel::TableUse;

struct Permission {
  TableUse use;
  const char* name;
};

constexpr Permission kPermissions[] = {{TableUse::kRead, "SELECT"},
                                       {TableUse::kAdd, "INSERT"},
                                       {TableUse::kChange, "UPDATE"},
                                       {TableUse::kRemove, "DELETE"}};

/// A row a table, with 1 for each permission that is refused; a database that only allows reading refuses the
/// others to everybody.
std::string Question(const tsql::Catalog& catalog) {
  std::string sql = "SELECT t.Tabela";
  for (const Permission& permission : kPermissions) {
    sql += std::string(", CASE WHEN HAS_PERMS_BY_NAME(t.Tabela, N'OBJECT', N'") + permission.name + "') = 0";
    if (permission.use != TableUse::kRead)
      sql += " OR CONVERT(nvarchar(20), DATABASEPROPERTYEX(DB_NAME(), N'Updateability')) = N'READ_ONLY'";
    sql += std::string(" THEN 1 ELSE 0 END AS [") + permission.name + "]";
  }
  sql += " FROM (VALUES ";
  const char* between = "";
  for (const tsql::Table& table : catalog.tables()) {
    sql += std::string(between) + "(N'" + table.name + "')";
    between = ", ";
  }
  return sql + ") AS t (Tabela)";
}

}  // namespace

zorCrmParvel::Refusals RefusedBy(Session& session, const tsql::Catalog& catalog) {
  if (!session.dialect().tellsRights) return {};
  constexpr std::size_t kColumns = 1 + std::size(kPermissions);
  platform::RowStore answer(kColumns);
  try {
    session.Read(Question(catalog), [&](ResultReader& result) {
      answer = platform::RowStore(kColumns);
      result.ReadAll(answer);
    });
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kStatementRefused) throw;
    return {};  // a server that doesn't tell refuses each act when it comes
  }
  zorCrmParvel::Refusals refusals;
  for (std::size_t row = 0; row < answer.rows(); ++row)
    for (std::size_t i = 0; i < std::size(kPermissions); ++i)
      if (answer.At(row, i + 1).integer() == 1)
        refusals[std::string(answer.At(row, 0).block())].insert(kPermissions[i].use);
  return refusals;
}

}  // namespace sqlserver
