#include "store/far_batch.h"

#include <algorithm>
#include <unordered_map>

#include "platform/text.h"
#include "sqlserver/bulk/row_text.h"

namespace store {
namespace {

using platform::Recordset;
using platform::Variant;
using sqlserver::TableChanges;
using zorCrmParvel::fixed;
using zorCrmParvel::RecordsetRef;

std::vector<std::size_t> KeyOf(const tsql::Table& table, const Recordset& rows) {
  std::vector<std::size_t> key;
  key.reserve(table.primaryKey.size());
  for (const std::string& name : table.primaryKey) key.push_back(rows.FindField(name).value());
  return key;
}

std::string TextOf(Recordset& rows, std::size_t row, const std::vector<std::size_t>& columns) {
  std::string text;
  for (const std::size_t column : columns) sqlserver::AppendCell(rows.CellAt(row, column), text);
  return text;
}

std::vector<Variant> ValuesOf(Recordset& rows, std::size_t row, const std::vector<std::size_t>& columns) {
  std::vector<Variant> values;
  values.reserve(columns.size());
  for (const std::size_t column : columns) values.push_back(rows.CellAt(row, column).ToVariant());
  return values;
}

/// The columns in which a row is another one than before.
sqlserver::RowWriter::Values Difference(Recordset& now, std::size_t row, Recordset& before, std::size_t old) {
  sqlserver::RowWriter::Values values(now.FieldList().size());
  for (std::size_t i = 0; i < values.size(); ++i)
    if (TextOf(now, row, {i}) != TextOf(before, old, {i})) values[i] = now.CellAt(row, i).ToVariant();
  return values;
}

/// The place of the column that numbers the rows; nothing where there is none.
std::optional<std::size_t> NumberOf(const tsql::Table& table, const Recordset& rows) {
  for (const tsql::Column& column : table.columns)
    if (column.identity) return rows.FindField(column.name);
  return {};
}

/// The end of a statement that opens a table for adding rows to it.
constexpr std::string_view kOnlyToAdd = " WHERE 1=0";

bool Any(const sqlserver::RowWriter::Values& values) {
  return std::any_of(values.begin(), values.end(), [](const auto& value) { return value.has_value(); });
}

}  // namespace

FarBatch::FarBatch(zorCrmParvel::Store& server, const std::string& schema)
    : tables_(server, schema, kMostRows, NearTables::Keep::kRows) {}

bool FarBatch::Covers(const std::string& statement) {
  const TableNames names = TablesIn(statement);
  if (names.size() == 1 && statement.ends_with(kOnlyToAdd)) return tables_.TakeNone(*names.begin());
  return tables_.Take({names.begin(), names.end()});
}

GivenNumbers FarBatch::Send(const ApplyChanges& apply) {
  for (const tsql::Table& table : tables_.catalog().tables()) {
    const bool written = std::any_of(written_.begin(), written_.end(), [&](const std::string& name) {
      return platform::EqualsIgnoringCase(name, table.name);
    });
    if (!written) continue;
    std::vector<long> numbers;
    TableChanges changes = ChangesOf(table, numbers);
    Renumber(changes);
    const std::vector<long> given = apply(changes);
    for (std::size_t i = 0; i < given.size(); ++i) given_[table.name][numbers[i]] = given[i];
  }
  return std::move(given_);
}

/// `numbers`: those that the added rows have in memory.
TableChanges FarBatch::ChangesOf(const tsql::Table& table, std::vector<long>& numbers) {
  RecordsetRef now;
  memory().AbrirLeitura("", {"SELECT * FROM [", fixed(table.name), "]"}, now);
  Recordset& before = *tables_.RowsTaken(table.name);
  TableChanges changes{.table = table.name,
                       .fields = now->FieldList(),
                       .numbered = false,
                       .added = {},
                       .changed = {},
                       .removed = {}};
  const std::vector<std::size_t> key = KeyOf(table, *now);
  const auto number = NumberOf(table, *now);
  changes.numbered = number.has_value();
  std::unordered_map<std::string, std::size_t> old;
  for (std::size_t row = 0; row < before.RowsAtHand(); ++row) old.emplace(TextOf(before, row, key), row);
  for (std::size_t row = 0; row < now->RowsAtHand() || now->FetchMore(1); ++row) {
    if (const auto found = old.find(TextOf(*now, row, key)); found != old.end()) {
      auto values = Difference(*now, row, before, found->second);
      if (Any(values)) changes.changed.push_back({ValuesOf(*now, row, key), std::move(values)});
      old.erase(found);
      continue;
    }
    sqlserver::RowWriter::Values values(changes.fields.size());
    for (std::size_t i = 0; i < values.size(); ++i)
      if (!now->CellAt(row, i).IsNull() && i != number) values[i] = now->CellAt(row, i).ToVariant();
    if (number) numbers.push_back(now->CellAt(row, *number).ToVariant().ToLong());
    changes.added.push_back(std::move(values));
  }
  for (const auto& [text, row] : old) changes.removed.push_back(ValuesOf(before, row, key));
  return changes;
}

/// Rows of an import name the import and the rows that it stored, by numbers that only the server gives.
void FarBatch::Renumber(TableChanges& changes) const {
  if (changes.table != "parvel_importacoes_linhas") return;
  const auto place = [&](const char* name) {
    const auto found = std::find_if(changes.fields.begin(), changes.fields.end(),
                                    [&](const platform::FieldInfo& field) { return field.name == name; });
    return static_cast<std::size_t>(found - changes.fields.begin());
  };
  const auto given = [&](const std::string& table, long number) {
    const auto numbers = given_.find(table);
    if (numbers == given_.end()) return number;
    const auto found = numbers->second.find(number);
    return found == numbers->second.end() ? number : found->second;
  };
  for (sqlserver::RowWriter::Values& row : changes.added) {
    auto& import = row[place("Importacao")];
    if (import) import = Variant(static_cast<std::int32_t>(given("parvel_importacoes", import->ToLong())));
    auto& key = row[place("Chave")];
    const auto& table = row[place("Tabela")];
    if (key && table && given_.count(table->ToText()) != 0)
      key = Variant(std::to_string(given(table->ToText(), Variant(key->ToText()).ToLong())));
  }
}

}  // namespace store
