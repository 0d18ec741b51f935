#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tsql/types.h"

namespace tsql {

struct Column {
  std::string name;
  Type type;
  bool nullable = true;
  bool identity = false;  // numbered by the database
};

struct Index {
  std::string name;
  std::string table;
  std::vector<std::string> columns;
  bool unique = false;
};

struct Table {
  std::string name;
  std::vector<Column> columns;
  std::vector<std::string> primaryKey;
  std::vector<Index> indexes;

  /// Found without regard to case; null when there is none.
  const Column* Find(std::string_view column) const;
};

/// The tables that statements may name.
class Catalog {
 public:
  void Add(Table table);
  void Add(Index index);  // error when its table is missing
  const std::vector<Table>& tables() const { return tables_; }
  /// Found without regard to case; null when there is none.
  const Table* Find(std::string_view table) const;
  /// Error -2147217865 "Invalid object name '…'." when there is none.
  const Table& Get(std::string_view table) const;

 private:
  std::vector<Table> tables_;
};

}  // namespace tsql
