#pragma once

#include <optional>
#include <string>
#include <vector>

#include "embedded/compiler/expression_compiler.h"
#include "embedded/compiler/scope.h"
#include "embedded/compiler/typed.h"
#include "platform/recordset.h"
#include "tsql/ast.h"

namespace embedded {

/// A SELECT in SQLite's SQL. Its columns are called c0, c1, … there.
struct CompiledSelect {
  std::string sql;
  std::vector<platform::FieldInfo> fields;
  // For editing: the table, and for each field the column behind it, null for an expression. The rows have
  // one column more, the row's number in the table.
  const tsql::Table* table = nullptr;
  std::vector<const tsql::Column*> columns;
};

/// Compiles one SELECT, in one of three ways. Errors are the server's.
class SelectCompiler {
 public:
  SelectCompiler(const tsql::Catalog& catalog, Parameters& parameters)
      : catalog_(catalog), parameters_(parameters) {}

  CompiledSelect Rows(const tsql::Select& select);
  /// Error -2147217900 unless it reads the rows of one table.
  CompiledSelect EditableRows(const tsql::Select& select);
  /// A statement whose one value is the number of rows.
  std::string Count(const tsql::Select& select);

 private:
  struct Item {
    Typed value;
    std::string name;  // empty when it has none
    const tsql::Column* column = nullptr;
  };

  /// One SELECT of a union, compiled but for the kinds of its columns.
  struct Core {
    Scope scope;
    std::vector<Item> items;
    std::string tail;  // FROM … WHERE …
    std::optional<long> top;
    bool distinct = false;
    bool aggregate = false;

    bool PlainRows() const { return !distinct && !aggregate; }
  };

  Core CompileCore(const tsql::SelectCore& core);
  void CompileFrom(const tsql::SelectCore& core, Core& out);
  void AddStar(const tsql::SelectItem& item, Core& out) const;
  static void RequireOneKindOfRow(const ExpressionCompiler& expressions, const Core& core);

  static std::string ItemList(const Core& core);
  static std::string Sql(const Core& core);
  static std::string LimitOf(const Core& core);

  std::vector<Core> CompileCores(const tsql::Select& select);
  void UnifyKinds(std::vector<Core>& cores);

  /// What rows are ordered by, first by the first.
  struct Order {
    std::string sql;
    bool descending = false;
  };
  std::vector<Order> Orders(const tsql::Select& select, const Core& first);
  /// " ORDER BY …", or nothing.
  static std::string OrderBy(const std::vector<Order>& orders);
  /// Adds the columns of the result that the order lacks.
  static std::vector<Order> ByAllColumns(std::vector<Order> orders, const Core& core);
  /// A column of the result as it is ordered and compared by.
  static std::string Comparable(const Core& core, std::size_t item);
  std::string OrderTerm(const tsql::Expression& expression, const Core& first, bool fromItemsAlone);
  static std::size_t OrderPosition(const tsql::Literal& literal, const Core& first);
  static std::optional<std::size_t> FindItem(const std::string& name, const Core& core);

  std::string OrderedUnion(const tsql::Select& select, const std::vector<Core>& cores);
  static std::string UnionSql(const tsql::Select& select, const std::vector<Core>& cores,
                              const std::vector<Order>& byAllColumns);

  static std::vector<platform::FieldInfo> FieldsOf(const Core& core);

  const tsql::Catalog& catalog_;
  Parameters& parameters_;
  bool counting_ = false;
};

}  // namespace embedded
