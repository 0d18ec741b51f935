#include "embedded/storage/row_insert.h"

#include <algorithm>

#include "embedded/storage/sqlite.h"
#include "platform/stored_dates.h"
#include "tsql/fields.h"

namespace embedded {

using platform::FieldType;
using platform::Variant;

namespace {

constexpr std::ptrdiff_t kMostTogether = 64;  // rows of a statement

using Places = std::vector<std::size_t>;

Places AssignedIn(const zorCrmParvel::RowValues& row) {
  Places assigned;
  for (std::size_t i = 0; i < row.size(); ++i)
    if (row[i]) assigned.push_back(i);
  return assigned;
}

std::vector<std::string> NamesOf(const std::vector<platform::FieldInfo>& fields, const Places& places) {
  std::vector<std::string> names;
  for (const std::size_t i : places) names.push_back(fields[i].name);
  return names;
}

}  // namespace

std::string InsertSql(const std::string& table, const std::vector<std::string>& columns,
                      std::ptrdiff_t rows) {
  std::string names;
  std::string places;
  for (const std::string& column : columns) {
    names += (names.empty() ? "" : ", ") + QuotedName(column);
    places += places.empty() ? "?" : ", ?";
  }
  if (columns.empty()) return "INSERT INTO " + QuotedName(table) + " DEFAULT VALUES";
  std::string sql = "INSERT INTO " + QuotedName(table) + " (" + names + ") VALUES (" + places + ")";
  for (std::ptrdiff_t row = 1; row < rows; ++row) sql += ", (" + places + ")";
  return sql;
}

void BindVariant(sqlite3_stmt* statement, int index, FieldType type, const Variant& value) {
  if (value.IsNull()) {
    sqlite3_bind_null(statement, index);
    return;
  }
  switch (type) {
    case FieldType::kBool:
      sqlite3_bind_int(statement, index, value.ToBool() ? 1 : 0);
      return;
    case FieldType::kInteger:
    case FieldType::kLong:
      sqlite3_bind_int64(statement, index, value.ToLong());
      return;
    case FieldType::kDouble:
      sqlite3_bind_double(statement, index, value.ToDouble());
      return;
    case FieldType::kCurrency:
      sqlite3_bind_int64(statement, index, value.ToCurrency().tenThousandths());
      return;
    case FieldType::kDate:
      sqlite3_bind_int64(statement, index, value.ToDate().seconds());
      return;
    case FieldType::kText: {
      const auto* own = value.As<std::string>();
      const std::string text = own == nullptr ? value.ToText() : std::string();
      const std::string& bound = own == nullptr ? text : *own;
      sqlite3_bind_text(statement, index, bound.data(), static_cast<int>(bound.size()),
                        own == nullptr ? SQLITE_TRANSIENT : SQLITE_STATIC);
      return;
    }
    case FieldType::kBytes: {
      const platform::Bytes& bytes = value.ToBytes();
      sqlite3_bind_blob64(statement, index, bytes.empty() ? "" : static_cast<const void*>(bytes.data()),
                          bytes.size(), SQLITE_STATIC);
      return;
    }
  }
}

void AddRows(Engine& engine, const tsql::Table& table, const std::vector<std::string>& columns,
             const std::vector<const zorCrmParvel::RowValues*>& rows) {
  const std::vector<platform::FieldInfo> fields = tsql::FieldsOf(table, columns);
  for (const zorCrmParvel::RowValues* row : rows) platform::RequireStorableDates(fields, *row);
  for (auto first = rows.begin(); first != rows.end();) {
    const Places assigned = AssignedIn(**first);
    const auto like = [&](const zorCrmParvel::RowValues* row) { return AssignedIn(*row) == assigned; };
    const auto most = first + std::min<std::ptrdiff_t>(kMostTogether, rows.end() - first);
    auto last = assigned.empty() ? first + 1 : std::find_if_not(first + 1, most, like);
    if (last - first < kMostTogether) last = first + 1;  // two statements do for any number of rows
    const std::string sql = InsertSql(table.name, NamesOf(fields, assigned), last - first);
    engine.Write(sql, [&](sqlite3_stmt* statement) {
      int index = 0;
      for (auto row = first; row != last; ++row)
        for (const std::size_t i : assigned) BindVariant(statement, ++index, fields[i].type, *(**row)[i]);
    });
    first = last;
  }
}

}  // namespace embedded
