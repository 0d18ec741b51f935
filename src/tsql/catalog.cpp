#include "tsql/catalog.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace tsql {
namespace {

[[noreturn]] void Fail(int number, const std::string& description) {
  throw platform::RuntimeError(number, "Catalog", description);
}

template <typename Named>
const Named* FindNamed(const std::vector<Named>& all, std::string_view name) {
  const auto found = std::find_if(all.begin(), all.end(), [name](const Named& each) {
    return platform::EqualsIgnoringCase(each.name, name);
  });
  return found == all.end() ? nullptr : &*found;
}

void RequireColumns(const Table& table, const std::vector<std::string>& columns) {
  for (const std::string& column : columns) {
    if (table.Find(column) == nullptr) {
      Fail(platform::kInvalidColumn,
           "Column name '" + column + "' does not exist in the target table '" + table.name + "'.");
    }
  }
}

}  // namespace

const Column* Table::Find(std::string_view column) const { return FindNamed(columns, column); }

void Catalog::Add(Table table) {
  if (Find(table.name) != nullptr) {
    Fail(platform::kStatementRefused,
         "There is already an object named '" + table.name + "' in the database.");
  }
  RequireColumns(table, table.primaryKey);
  for (const std::string& key : table.primaryKey) {
    if (table.Find(key)->nullable) {
      Fail(platform::kStatementRefused,
           "Cannot define PRIMARY KEY constraint on nullable column in table '" + table.name + "'.");
    }
  }
  tables_.push_back(std::move(table));
}

void Catalog::Add(Index index) {
  const Table& owner = Get(index.table);
  RequireColumns(owner, index.columns);
  tables_[static_cast<std::size_t>(&owner - tables_.data())].indexes.push_back(std::move(index));
}

const Table* Catalog::Find(std::string_view table) const { return FindNamed(tables_, table); }

const Table& Catalog::Get(std::string_view table) const {
  const Table* const found = Find(table);
  if (found == nullptr) Fail(platform::kInvalidObject, "Invalid object name '" + std::string(table) + "'.");
  return *found;
}

}  // namespace tsql
