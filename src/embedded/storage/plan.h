#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "embedded/compiler/parameters.h"
#include "embedded/compiler/shape.h"
#include "embedded/storage/sqlite.h"
#include "platform/date.h"
#include "platform/recordset.h"
#include "tsql/catalog.h"

namespace embedded {

using Clock = std::function<platform::Date()>;

/// A statement of one shape, compiled and prepared. One run at a time: `Begin`, then steps of
/// `rows()` until it is reset.
class Plan {
 public:
  enum class Use : char { kRead = 'r', kEdit = 'e' };

  /// Compiles a statement; its literals are those of its shape. Errors are the server's.
  Plan(sqlite3* connection, const tsql::Catalog& catalog, const std::string& statement,
       const std::vector<LiteralSpan>& literals, Use use);

  /// True when a statement of the same shape, with these literals, can be run by this plan.
  bool Takes(const std::string& statement, const std::vector<LiteralSpan>& literals) const;

  /// Starts a run. The clock is asked only when the statement calls getdate().
  void Begin(const std::string& statement, const std::vector<LiteralSpan>& literals, const Clock& clock);
  /// The statement of the run.
  const SqliteStatement& rows() const { return rows_; }
  /// The kinds of the fields, close together for the reading of rows.
  const std::vector<platform::FieldType>& fieldTypes() const { return fieldTypes_; }
  /// The number of rows of the run that was begun, as they were when it began.
  std::int64_t Count(sqlite3* connection, const tsql::Catalog& catalog);

  /// False for a statement that writes.
  bool reads() const { return reads_; }
  const std::vector<platform::FieldInfo>& fields() const { return fields_; }
  /// For editing: the table, and the column behind each field, null for an expression.
  const tsql::Table* table() const { return table_; }
  const std::vector<const tsql::Column*>& columns() const { return columns_; }

 private:
  struct Counter {
    SqliteStatement statement;
    std::vector<Parameter> parameters;
  };

  void KeepFixedLiterals(const std::string& statement, const std::vector<LiteralSpan>& literals);
  Arguments RunArguments() const { return {text_, &literals_, now_}; }

  SqliteStatement rows_;
  std::vector<Parameter> parameters_;
  bool asksClock_ = false;
  std::unique_ptr<Counter> counter_;
  bool reads_ = false;
  std::vector<platform::FieldInfo> fields_;
  std::vector<platform::FieldType> fieldTypes_;
  const tsql::Table* table_ = nullptr;
  std::vector<const tsql::Column*> columns_;

  struct FixedLiteral {
    std::size_t ordinal;
    std::string value;
  };
  std::vector<FixedLiteral> fixed_;

  // The statement of the current run; parameters point into it.
  std::string text_;
  std::vector<LiteralSpan> literals_;
  std::int64_t now_ = 0;
};

}  // namespace embedded
