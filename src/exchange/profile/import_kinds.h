#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace exchange {

/// How the vehicles' figures follow from a kind of rows.
enum class Figures { kNone, kExpenses, kCosts, kCostsWithRevisions };

/// A column of a kind whose value is a code of a table.
struct CodeColumn {
  const char* column;
  const char* table;  // its columns are Codigo and Nome
};

/// What one kind of rows is, for whatever maps, records and takes back.
struct ImportKind {
  const char* name;   // as users give it: "gastos"
  const char* title;  // for people
  const char* table;
  const char* key;     // the column by which a row is found again
  bool numbered;       // the database gives the key
  const char* owner;   // rows of one owner are checked together: the plate, or a code
  const char* date;    // null: rows have no order
  const char* amount;  // what is added up; null: nothing
  Figures figures;
  std::vector<CodeColumn> codes;
};

const std::vector<ImportKind>& ImportKinds();
/// Null for a name that isn't one.
const ImportKind* KindOf(std::string_view name);
/// The table whose codes a column of a kind holds; null when it holds none. `Matricula` of an event is one of
/// the vehicles.
const char* CodeTableOf(const ImportKind& kind, std::string_view column);

}  // namespace exchange
