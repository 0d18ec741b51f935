#include "history/rows_by_key.h"

#include <algorithm>

#include "platform/text.h"

namespace history {
namespace {

constexpr std::size_t kMostKeys = 1000;  // of one statement

/// Conditions that find the rows of all keys, as few as may be.
std::vector<std::string> ConditionsOf(const tsql::Table& table, const std::vector<const Image*>& keys) {
  std::vector<std::string> conditions;
  if (table.primaryKey.size() != 1) {
    for (const Image* key : keys) conditions.push_back(KeyCondition(table, *key));
    return conditions;
  }
  const tsql::Column& column = *table.Find(table.primaryKey.front());
  const auto place = static_cast<std::size_t>(&column - table.columns.data());
  for (std::size_t from = 0; from < keys.size(); from += kMostKeys) {
    std::string condition = Bracketed(column.name) + " IN (";
    const std::size_t to = std::min(keys.size(), from + kMostKeys);
    for (std::size_t i = from; i < to; ++i)
      condition += (i == from ? "" : ", ") + SqlLiteral(column, *(*keys[i])[place]);
    conditions.push_back(condition + ")");
  }
  return conditions;
}

}  // namespace

std::map<std::string, Image> RowsByKey(KeepingStore& store, const tsql::Table& table,
                                       const std::vector<const Image*>& keys) {
  std::vector<const tsql::Column*> columns;
  for (std::size_t i = 0; i < table.columns.size(); ++i)
    if (!HoldsBytes(table.columns[i]) ||
        std::any_of(keys.begin(), keys.end(), [&](const Image* key) { return (*key)[i].has_value(); }))
      columns.push_back(&table.columns[i]);
  const std::string head = "SELECT " + NamesOf(columns) + " FROM " + Bracketed(table.name) + " WHERE ";
  std::map<std::string, Image> found;
  for (const std::string& condition : ConditionsOf(table, keys)) {
    zorCrmParvel::RecordsetRef rows;
    store.inner()->AbrirLeitura("", (head + condition).c_str(), rows);
    for (Image& row : ImagesOf(table, *rows)) found.emplace(FoldedKey(table, row), std::move(row));
    rows->Close();
  }
  return found;
}

void DeleteRows(KeepingStore& store, const tsql::Table& table, const std::vector<const Image*>& keys) {
  for (const std::string& condition : ConditionsOf(table, keys))
    store.ExecutarSql("", ("DELETE FROM " + Bracketed(table.name) + " WHERE " + condition).c_str());
}

}  // namespace history
