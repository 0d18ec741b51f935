#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "history/image.h"

/// Rows as the history stores them: money with a point, dates as "2026-11-24 10:12:00", bytes as the digest
/// of their content.
namespace history {

void AppendJson(const tsql::Column& column, const platform::Variant& value, std::string& json);
/// `{"Coluna":valor,…}` of the columns recorded.
std::string ToJson(const tsql::Table& table, const Image& image);
/// Several rows as `{"colunas":[…],"linhas":[[…],…]}`.
class JsonList {
 public:
  explicit JsonList(const tsql::Table& table) : table_(table) {}
  // All rows of a list have the same columns.
  /// A row of values; a column that it lacks is null.
  void Add(const zorCrmParvel::RowValues& row, const Places& places);
  /// A row of a recordset, of its fields alone.
  void Add(platform::Recordset& rows, std::size_t row, const Places& places);
  std::size_t rows() const { return count_; }
  /// The list, which is empty then.
  std::string Take();

 private:
  template <typename Has>
  void Begin(const Has& has);

  const tsql::Table& table_;
  std::string json_;
  std::size_t count_ = 0;
};

/// The rows of an object, of a list of objects, or of a list of rows. Columns that the table no longer has
/// are left out. Error -2147467259 when the text is none.
std::vector<Image> FromJson(const tsql::Table& table, std::string_view json);

// As they stand in JSON and in statements.
std::string RealText(double value);
std::string DateText(platform::Date date);

}  // namespace history
