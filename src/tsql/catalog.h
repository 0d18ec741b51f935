#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tsql/types.h"

namespace tsql {

/// A column as it is declared.
struct Column {
  std::string name;  // spelled as declared, as all names here
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
  std::vector<std::string> primaryKey;  // columns in the key's order; empty when there is none
  std::vector<Index> indexes;

  /// Found without regard to case; null when there is none.
  const Column* Find(std::string_view column) const;
};

/// The tables that statements may name. References and pointers to them end with the next `Add`.
class Catalog {
 public:
  /// Error -2147217900 for a second one of the name, and for a key that its columns can't make.
  void Add(Table table);
  /// To the table that it names. Error -2147217865 when that is missing.
  void Add(Index index);
  const std::vector<Table>& tables() const { return tables_; }
  /// Found without regard to case; null when there is none.
  const Table* Find(std::string_view table) const;
  /// Error -2147217865 "Invalid object name '…'." when there is none.
  const Table& Get(std::string_view table) const;

 private:
  std::vector<Table> tables_;
};

}  // namespace tsql
