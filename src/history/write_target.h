#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tsql/catalog.h"

namespace history {

/// What a statement that writes does, and to which rows.
struct WriteTarget {
  enum class Kind { kInsert, kUpdate, kDelete };
  Kind kind = Kind::kDelete;
  std::string name;                    // the table, as the statement spells it
  const tsql::Table* table = nullptr;  // null: one whose rows are not recorded
  std::string condition;               // " WHERE …" as it stands, or empty
  std::vector<std::string> assigned;   // the columns written

  /// Nothing for a statement that reads. Errors as of `tsql::ParseStatement`.
  static std::optional<WriteTarget> Of(const std::string& statement, const tsql::Catalog& catalog);
};

/// The table of a name when its rows are recorded, else null: those of the hosts' own are not.
const tsql::Table* Recorded(const std::string& table, const tsql::Catalog& catalog);

/// The table of a SELECT whose rows are opened for editing; null when they are not recorded.
const tsql::Table* EditedTable(const std::string& statement, const tsql::Catalog& catalog);

}  // namespace history
