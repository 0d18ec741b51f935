#include "sqlserver/schema/transfer.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"
#include "sqlserver/bulk/brought_numbers.h"
#include "sqlserver/bulk/row_text.h"
#include "sqlserver/bulk/row_writer.h"
#include "sqlserver/dialect.h"
#include "sqlserver/schema/schema_script.h"
#include "sqlserver/session.h"
#include "tsql/catalog.h"

namespace sqlserver {
namespace {

using platform::RuntimeError;
using zorCrmParvel::DataAccess;
using zorCrmParvel::fixed;
using zorCrmParvel::RecordsetRef;

std::string ColumnNames(const tsql::Table& table) {
  std::string names;
  for (const tsql::Column& column : table.columns)
    names += (names.empty() ? "" : ", ") + Bracketed(column.name);
  return names;
}

RecordsetRef RowsOf(DataAccess& data, const tsql::Table& table) {
  RecordsetRef rows;
  data.AbrirLeitura("", {"SELECT ", fixed(ColumnNames(table)), " FROM ", fixed(Bracketed(table.name))}, rows);
  return rows;
}

long CountOf(DataAccess& data, const tsql::Table& table) {
  RecordsetRef rows;
  data.AbrirLeitura("", {"SELECT count(*) AS n FROM ", fixed(Bracketed(table.name))}, rows);
  return rows->Fields("n").Value().ToLong();
}

/// The rows of a table in any order, each by the hash of its values.
std::vector<std::size_t> Fingerprint(DataAccess& data, const tsql::Table& table) {
  const RecordsetRef rows = RowsOf(data, table);
  std::vector<std::size_t> hashes;
  std::string text;
  for (std::size_t row = 0; row < rows->RowsAtHand() || rows->FetchMore(1); ++row) {
    text.clear();
    for (std::size_t i = 0; i < table.columns.size(); ++i) AppendCell(rows->CellAt(row, i), text);
    hashes.push_back(std::hash<std::string>()(text));
  }
  std::sort(hashes.begin(), hashes.end());
  return hashes;
}

void CopyRows(DataAccess& from, Session& to, const tsql::Table& table) {
  const BroughtNumbers numbers(to, table);
  const RecordsetRef rows = RowsOf(from, table);
  RowWriter writer(to, table, rows->FieldList());
  for (std::size_t row = 0; row < rows->RowsAtHand() || rows->FetchMore(1); ++row) {
    RowWriter::Values values;
    for (std::size_t i = 0; i < table.columns.size(); ++i)
      values.emplace_back(rows->CellAt(row, i).ToVariant());
    writer.Add(values, false);
  }
  writer.Finish();
}

void CopyTable(DataAccess& from, Database& to, const tsql::Table& table) {
  zorCrmParvel::Batch batch(to);
  CopyRows(from, to.session(), table);
  if (Fingerprint(from, table) != Fingerprint(to, table))
    throw RuntimeError(platform::kEngineFailure, table.name,
                       "Os registos de " + table.name +
                           " não ficaram iguais no servidor: a tabela ficou vazia, como estava.");
  batch.Commit();
}

/// Copies a table; why it could not be, or nothing. A lost connection ends the transfer.
std::string RefusalOf(DataAccess& from, Database& to, const tsql::Table& table) {
  try {
    CopyTable(from, to, table);
    return {};
  } catch (const RuntimeError& error) {
    if (error.number() == platform::kEngineFailure) throw;
    return error.description();
  }
}

void RequireTables(Database& to) {
  std::string lacking;
  for (const tsql::Table& table : to.catalog().tables())
    if (!HasTable(to.session(), table.name)) lacking += (lacking.empty() ? "" : ", ") + table.name;
  if (!lacking.empty())
    throw RuntimeError(platform::kInvalidObject, to.Place(),
                       "Faltam tabelas em " + to.Place() + ": " + lacking +
                           ". Crie-as com «parvel esquema --aplicar» e repita.");
}

/// The tables that an earlier run brought. Error 457 when one has other rows.
std::vector<const tsql::Table*> Brought(DataAccess& from, Database& to) {
  std::vector<const tsql::Table*> brought;
  std::string occupied;
  for (const tsql::Table& table : to.catalog().tables()) {
    if (CountOf(to, table) == 0) continue;
    if (Fingerprint(from, table) == Fingerprint(to, table))
      brought.push_back(&table);
    else
      occupied += (occupied.empty() ? "" : ", ") + table.name;
  }
  if (!occupied.empty())
    throw RuntimeError(platform::kKeyInUse, to.Place(),
                       "Já há outros registos em " + to.Place() + ": " + occupied +
                           ". Só se transfere para tabelas vazias, e nada foi gravado.");
  return brought;
}

}  // namespace

void Transfer(DataAccess& from, Database& to, const std::function<void(const TransferredTable&)>& done) {
  RequireTables(to);
  const std::vector<const tsql::Table*> brought = Brought(from, to);
  for (const tsql::Table& table : to.catalog().tables()) {
    const bool already = std::find(brought.begin(), brought.end(), &table) != brought.end();
    const long rows = CountOf(from, table);
    done({table.name, rows, already, already || rows == 0 ? "" : RefusalOf(from, to, table)});
  }
}

}  // namespace sqlserver
