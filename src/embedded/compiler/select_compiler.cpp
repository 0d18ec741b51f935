#include "embedded/compiler/select_compiler.h"

#include <algorithm>

#include "embedded/compiler/server_error.h"
#include "platform/text.h"

namespace embedded {
namespace {

// What SQLite takes, less the column that a union and an edit add.
constexpr std::size_t kMostSelects = 500;
constexpr std::size_t kMostColumns = 1999;

std::string Alias(std::size_t item) { return "c" + std::to_string(item); }

/// "SELECT c0, c1, … FROM (inner)".
std::string AllOf(std::size_t items, const std::string& inner) {
  std::string sql = "SELECT ";
  for (std::size_t i = 0; i < items; ++i) sql += (i == 0 ? "" : ", ") + Alias(i);
  return sql + " FROM (" + inner + ")";
}

}  // namespace

CompiledSelect SelectCompiler::Rows(const tsql::Select& select) {
  const std::vector<Core> cores = CompileCores(select);
  const Core& first = cores.front();
  CompiledSelect compiled;
  compiled.fields = FieldsOf(first);
  compiled.sql = cores.size() > 1 ? OrderedUnion(select, cores)
                                  : Sql(first) + OrderBy(Orders(select, first)) + LimitOf(first);
  return compiled;
}

CompiledSelect SelectCompiler::EditableRows(const tsql::Select& select) {
  const std::vector<Core> cores = CompileCores(select);
  Core first = cores.front();
  if (cores.size() > 1 || first.scope.sources().size() != 1 || !first.PlainRows())
    Refuse("Cursor is read-only: only the rows of one table can be changed.");
  CompiledSelect compiled;
  compiled.fields = FieldsOf(first);
  compiled.table = first.scope.sources().front().table;
  for (const Item& item : first.items) compiled.columns.push_back(item.column);
  compiled.sql = "SELECT " + ItemList(first) + ", t0.rowid" + first.tail + OrderBy(Orders(select, first)) +
                 LimitOf(first);
  return compiled;
}

std::string SelectCompiler::Count(const tsql::Select& select) {
  counting_ = true;
  const std::vector<Core> cores = CompileCores(select);
  const Core& first = cores.front();
  if (cores.size() > 1)
    return "SELECT count(*) FROM (" + UnionSql(select, cores, ByAllColumns({}, first)) + ")";
  const bool oneTable = first.scope.sources().size() == 1;
  if (first.PlainRows() && oneTable && !first.top) return "SELECT count(*)" + first.tail;
  // With a limit, joins that can't change the number of rows are left out.
  const std::string limit = first.top ? LimitOf(first) : " LIMIT -1";
  const std::string rows = first.PlainRows() ? "SELECT 1" + first.tail : Sql(first);
  return "SELECT count(*) FROM (" + rows + limit + ")";
}

SelectCompiler::Core SelectCompiler::CompileCore(const tsql::SelectCore& core) {
  Core out{Scope(catalog_), {}, {}, core.top, core.distinct};
  CompileFrom(core, out);
  ExpressionCompiler expressions(out.scope, parameters_);
  if (core.where) {
    expressions.WriteOut(counting_);
    out.tail += " WHERE " + expressions.Condition(*core.where);
    if (expressions.sawAggregate()) Refuse("An aggregate may not appear in the WHERE clause.");
  }
  ExpressionCompiler itemExpressions(out.scope, parameters_);
  itemExpressions.KeepWidths(true);
  for (const tsql::SelectItem& item : core.items) {
    if (item.star) {
      AddStar(item, out);
      continue;
    }
    const auto* column = std::get_if<tsql::ColumnRef>(&item.expression->node);
    Item compiled{itemExpressions.Value(*item.expression), item.alias, nullptr};
    if (column != nullptr) {
      if (item.alias.empty()) compiled.name = column->name;
      for (const Source& source : out.scope.sources())
        if (compiled.column == nullptr) compiled.column = source.table->Find(column->name);
    }
    out.items.push_back(std::move(compiled));
  }
  RequireOneKindOfRow(itemExpressions, out);
  out.aggregate = itemExpressions.sawAggregate();
  return out;
}

void SelectCompiler::RequireOneKindOfRow(const ExpressionCompiler& expressions, const Core& core) {
  if (!expressions.sawAggregate()) return;
  std::string column = expressions.loneColumn();
  for (const Item& item : core.items)
    if (column.empty() && item.value.isColumn) column = item.name;
  if (!column.empty())
    Refuse(
        "Column '" + column +
        "' is invalid in the select list because it is not contained in either an aggregate function or the "
        "GROUP BY clause.");
}

void SelectCompiler::CompileFrom(const tsql::SelectCore& core, Core& out) {
  const auto add = [&out](const char* join, const tsql::TableRef& table, bool outer) {
    const Source& source = out.scope.Add(table, outer);
    out.tail += join + QuotedName(source.table->name) + " AS " + source.alias;
  };
  if (!core.from) return;
  add(" FROM ", *core.from, false);
  for (const tsql::Join& join : core.joins) {
    const bool left = join.kind == tsql::Join::Kind::kLeft;
    add(left ? " LEFT JOIN " : " JOIN ", join.table, left);
    out.tail += " ON " + ExpressionCompiler(out.scope, parameters_).Condition(*join.on);
  }
}

void SelectCompiler::AddStar(const tsql::SelectItem& item, Core& out) const {
  for (const Source* source : out.scope.Stars(item.starTable))
    for (const tsql::Column& column : source->table->columns)
      out.items.push_back({source->ColumnAt(column), column.name, &column});
}

std::string SelectCompiler::ItemList(const Core& core) {
  std::string sql;
  for (std::size_t i = 0; i < core.items.size(); ++i)
    sql += (i == 0 ? "" : ", ") + Collated(core.items[i].value) + " AS " + Alias(i);
  return sql;
}

std::string SelectCompiler::Sql(const Core& core) {
  return (core.distinct ? "SELECT DISTINCT " : "SELECT ") + ItemList(core) + core.tail;
}

std::string SelectCompiler::LimitOf(const Core& core) {
  return core.top ? " LIMIT " + std::to_string(*core.top) : "";
}

std::vector<SelectCompiler::Core> SelectCompiler::CompileCores(const tsql::Select& select) {
  if (select.cores.size() > kMostSelects) RefuseAsTooComplex();
  std::vector<Core> cores;
  for (const tsql::SelectCore& core : select.cores) {
    cores.push_back(CompileCore(core));
    if (cores.back().items.size() > kMostColumns)
      Refuse("The number of elements in the select list exceeds the maximum allowed number of " +
             std::to_string(kMostColumns) + " elements.");
  }
  UnifyKinds(cores);
  return cores;
}

/// Columns that stand under one another in a union become of one kind.
void SelectCompiler::UnifyKinds(std::vector<Core>& cores) {
  for (const Core& core : cores)
    if (core.items.size() != cores.front().items.size())
      Refuse(
          "All queries combined using a UNION, INTERSECT or EXCEPT operator must have an equal number of "
          "expressions in their target lists.");
  for (std::size_t i = 0; cores.size() > 1 && i < cores.front().items.size(); ++i) {
    Typed& first = cores.front().items[i].value;
    Kind kind = Kind::kNull;
    for (const Core& core : cores) kind = CommonKind(kind, core.items[i].value.kind);
    for (Core& core : cores) {
      Typed& value = core.items[i].value;
      value = Coerce(std::move(value), kind, parameters_);
      first.width = std::max(first.width, value.width);
      first.nullable = first.nullable || value.nullable;
    }
  }
}

// When the rows are grouped in the order in which they are wanted, SQLite sorts them once.
std::string SelectCompiler::OrderedUnion(const tsql::Select& select, const std::vector<Core>& cores) {
  const Core& first = cores.front();
  const std::vector<Order> orders = Orders(select, first);
  const std::vector<Order> byAllColumns = ByAllColumns(orders, first);
  const std::string rows = UnionSql(select, cores, byAllColumns);
  const bool grouped = !select.unionAll.back();
  return grouped ? rows + OrderBy(byAllColumns) : AllOf(first.items.size(), rows) + OrderBy(orders);
}

// Of equal rows the first stays: SQLite takes the other columns from the row in which `min` found its value.
// The last UNION without ALL makes all before it distinct.
std::string SelectCompiler::UnionSql(const tsql::Select& select, const std::vector<Core>& cores,
                                     const std::vector<Order>& byAllColumns) {
  std::string columns;
  for (std::size_t i = 0; i < cores.front().items.size(); ++i) columns += Alias(i) + ", ";
  std::string key;
  for (const Order& order : byAllColumns) key += (key.empty() ? "" : ", ") + order.sql;
  const auto all = select.unionAll.rbegin();
  const auto distinct =
      static_cast<std::size_t>(select.unionAll.rend() - std::find(all, select.unionAll.rend(), false));
  std::string sql;
  for (std::size_t i = 0; i < cores.size(); ++i) {
    if (i > 0) sql += " UNION ALL ";
    sql += "SELECT *, " + std::to_string(i) + " AS core FROM (" + Sql(cores[i]) + LimitOf(cores[i]) + ")";
    if (i > 0 && i == distinct)
      sql.insert(0, "SELECT " + columns + "min(core) AS core FROM (").append(") GROUP BY " + key);
  }
  return sql;
}

std::vector<platform::FieldInfo> SelectCompiler::FieldsOf(const Core& core) {
  std::vector<platform::FieldInfo> fields;
  for (const Item& item : core.items)
    fields.push_back({item.name, FieldTypeOf(item.value.kind), item.value.width, item.value.nullable});
  return fields;
}

}  // namespace embedded
