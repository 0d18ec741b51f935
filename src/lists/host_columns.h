#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/data_access.h"
#include "lists/cells.h"

namespace lists {

/// What the footer says of a column.
enum class Summed { kNo, kMean, kSumAndMean };

/// A column that stands behind those of a list.
struct HostColumn {
  const char* key;  // of the result, and of the column
  const char* caption;
  float width;            // twips
  const char* mask = "";  // of numbers
  Summed summed = Summed::kNo;
  bool hidden = false;  // until somebody wants it
};

/// The columns that stand behind one list of the module.
struct HostTable {
  const char* list;        // the list's key
  const char* key_column;  // of the list: what rows are found by
  const char* select;      // what is read: the key first, then one field a column
  const char* key_field;   // for the condition
  bool key_is_text;
  std::vector<HostColumn> columns;
};

/// Null for a list that has none.
const HostTable* HostTableOf(std::string_view list);

/// The cells of these columns, read by one statement for all rows that are asked for together. For one
/// thread.
class HostCells {
 public:
  /// `key_of` gives the key of a row of the list.
  HostCells(const HostTable& table, zorCrmParvel::DataAccessRef bd, std::function<std::string(long)> key_of);

  /// The list has other rows now, so many.
  void Reset(long rows);
  /// Makes these rows quick to read: one statement for those that aren't.
  void Prepare(const std::vector<long>& rows);
  /// The same for all rows, in slices: false when all are at hand.
  bool PrepareMore(std::size_t rows);
  void PrepareAll();

  /// From now on nothing is read here: the rows of the table's statement are brought by `Take`, and what they
  /// don't tell is empty until then.
  void Await() { awaits_ = true; }
  void Take(zorCrmParvel::RecordsetRef all);

  /// A value; null also where the record is gone, and for the zero date. Reads what is not at hand.
  platform::Variant Value(long row, std::size_t column);
  std::string Shown(long row, std::size_t column);

  /// Those with a mask hold numbers.
  std::optional<Kind> KindOf(std::size_t column) const;

  const HostTable& table() const { return table_; }
  /// Statements sent so far.
  int statements() const { return statements_; }

 private:
  struct Place {
    std::uint32_t block = 0;  // one more than its number; 0 while it isn't known
    std::uint32_t row = 0;
  };
  static constexpr std::uint32_t kGone = 0xFFFFFFFF;

  void Forget();
  void MapAll();
  const platform::Cell* CellOf(long row, std::size_t column);
  void CallFor(long row, std::size_t column) const;
  const Place& PlaceOf(long row);
  void Add(const zorCrmParvel::Statement& statement, const std::vector<std::pair<std::string, long>>& wanted);
  zorCrmParvel::RecordsetRef Open(const zorCrmParvel::Statement& statement);

  const HostTable& table_;
  zorCrmParvel::DataAccessRef bd_;
  std::function<std::string(long)> key_of_;
  std::vector<Place> places_;  // by row of the list
  std::vector<zorCrmParvel::RecordsetRef> blocks_;
  zorCrmParvel::RecordsetRef all_;  // the whole, while and once it is read
  std::unordered_map<std::string, std::uint32_t> rows_of_all_;
  std::size_t mapped_ = 0;  // rows of the whole that can be found
  bool complete_ = false;
  bool awaits_ = false;
  int statements_ = 0;
};

}  // namespace lists
