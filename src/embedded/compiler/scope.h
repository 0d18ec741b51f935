#pragma once

#include <string>
#include <vector>

#include "embedded/compiler/typed.h"
#include "tsql/ast.h"
#include "tsql/catalog.h"

namespace embedded {

/// A table that a statement reads, and what the SQL calls it.
struct Source {
  const tsql::Table* table;
  std::string qualifier;  // its name in the statement
  std::string alias;      // its name in the SQL: t0, t1, …
  bool outer = false;     // its columns may be null for want of a row

  Typed ColumnAt(const tsql::Column& column) const;
};

/// The tables whose columns an expression may name.
class Scope {
 public:
  explicit Scope(const tsql::Catalog& catalog) : catalog_(catalog) {}

  /// Adds a table and returns what the SQL calls it. Error -2147217865 when there is no such table.
  const Source& Add(const tsql::TableRef& table, bool outer = false);
  const std::vector<Source>& sources() const { return sources_; }

  /// Error -2147217904 when there is no such column, -2147217900 when two tables have it.
  Typed Resolve(const tsql::ColumnRef& column) const;
  /// The tables that `*` or `t.*` stands for.
  std::vector<const Source*> Stars(const std::string& qualifier) const;

 private:
  const Source& FindSource(const std::string& qualifier, const std::string& name) const;

  const tsql::Catalog& catalog_;
  std::vector<Source> sources_;
};

/// Raises -2147217904 "Invalid column name '…'.".
[[noreturn]] void RefuseColumn(const std::string& name);

}  // namespace embedded
