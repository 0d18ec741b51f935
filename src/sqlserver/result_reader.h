#pragma once

#include <string>
#include <vector>

#include "platform/recordset.h"
#include "sqlserver/odbc.h"

namespace sqlserver {

/// The rows of an executed statement. Columns of a known width are read many rows at a time; from the first
/// column on that has none, a row is read column by column.
class ResultReader {
 public:
  explicit ResultReader(const OdbcStatement& statement);
  ~ResultReader() { statement_.Unbind(); }
  ResultReader(const ResultReader&) = delete;
  ResultReader& operator=(const ResultReader&) = delete;

  const std::vector<platform::FieldInfo>& fields() const { return fields_; }
  /// True for a column that the server numbers itself.
  bool IsNumbered(std::size_t column) const;
  /// Reads to the end. Raises `OdbcFailure` when the server fails on a row.
  void ReadAll(platform::RowStore& store);
  // What was read until now: rows, and the bytes of their values as they came.
  long rows() const { return rows_; }
  long bytes() const { return bytes_; }

 private:
  struct Column {
    platform::FieldType type = platform::FieldType::kText;
    SQLSMALLINT valueType = SQL_C_WCHAR;
    std::size_t size = 0;  // bytes of one value; 0 when there is no limit
    std::vector<char> values;
    std::vector<SQLLEN> lengths;
  };

  void Describe(SQLUSMALLINT number);
  void Bind();
  bool Fetch();
  void Keep(platform::RowStore& store, std::size_t row);
  void ReadUnbound(platform::RowStore& store, std::size_t row);
  platform::Cell ReadLong(SQLUSMALLINT number, const Column& column);
  platform::Cell CellOf(const Column& column, std::size_t row);
  platform::Cell TextCell(std::u16string_view text);

  const OdbcStatement& statement_;
  std::vector<platform::FieldInfo> fields_;
  std::vector<Column> columns_;
  std::size_t bound_ = 0;  // the columns before this one
  std::vector<SQLUSMALLINT> states_;
  SQLULEN fetched_ = 0;
  long rows_ = 0;
  long bytes_ = 0;
  std::string scratch_;
};

}  // namespace sqlserver
