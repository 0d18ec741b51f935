#include <algorithm>
#include <charconv>

#include "embedded/compiler/select_compiler.h"
#include "embedded/compiler/server_error.h"
#include "platform/text.h"

// ORDER BY: a name is first one of the select list, then one of the tables.
namespace embedded {

std::vector<SelectCompiler::Order> SelectCompiler::Orders(const tsql::Select& select, const Core& first) {
  const bool fromItemsAlone = select.cores.size() > 1 || first.distinct;
  std::vector<Order> orders;
  for (const tsql::OrderItem& item : select.orderBy)
    orders.push_back({OrderTerm(*item.expression, first, fromItemsAlone), item.descending});
  return orders;
}

std::string SelectCompiler::OrderBy(const std::vector<Order>& orders) {
  std::string sql;
  for (const Order& order : orders)
    sql += (sql.empty() ? " ORDER BY " : ", ") + order.sql + (order.descending ? " DESC" : "");
  return sql;
}

std::vector<SelectCompiler::Order> SelectCompiler::ByAllColumns(std::vector<Order> orders, const Core& core) {
  for (std::size_t i = 0; i < core.items.size(); ++i) {
    const std::string column = Comparable(core, i);
    const bool there =
        std::any_of(orders.begin(), orders.end(), [&](const Order& order) { return order.sql == column; });
    if (!there) orders.push_back({column, false});
  }
  return orders;
}

std::string SelectCompiler::Comparable(const Core& core, std::size_t item) {
  const bool text = core.items[item].value.kind == Kind::kText;
  return "c" + std::to_string(item) + (text ? " COLLATE SERVER" : "");
}

std::string SelectCompiler::OrderTerm(const tsql::Expression& expression, const Core& first,
                                      bool fromItemsAlone) {
  if (const auto* column = std::get_if<tsql::ColumnRef>(&expression.node)) {
    if (column->table.empty())
      if (const auto item = FindItem(column->name, first)) return Comparable(first, *item);
    if (fromItemsAlone) {
      const std::string resolved = first.scope.Resolve(*column).sql;
      for (std::size_t i = 0; i < first.items.size(); ++i)
        if (first.items[i].value.sql == resolved) return Comparable(first, i);
    }
  } else if (const auto* literal = std::get_if<tsql::Literal>(&expression.node)) {
    return Comparable(first, OrderPosition(*literal, first));
  }
  if (fromItemsAlone)
    Refuse(
        "ORDER BY items must appear in the select list if the statement contains a UNION, INTERSECT or "
        "EXCEPT "
        "operator, or if SELECT DISTINCT is specified.");
  ExpressionCompiler expressions(first.scope, parameters_);
  std::string sql = Collated(expressions.Value(expression));
  if (expressions.sawAggregate() && !first.aggregate)
    Refuse("An aggregate may not appear in the ORDER BY clause of rows that are not summed up.");
  if (first.aggregate && !expressions.loneColumn().empty())
    Refuse(
        "Column '" + expressions.loneColumn() +
        "' is invalid in the ORDER BY clause because it is not contained in either an aggregate function or "
        "the GROUP BY clause.");
  return sql;
}

/// A number in the clause is the place of a column.
std::size_t SelectCompiler::OrderPosition(const tsql::Literal& literal, const Core& first) {
  std::size_t position = 0;
  std::from_chars(literal.value.data(), literal.value.data() + literal.value.size(), position);
  if (literal.kind != tsql::Literal::Kind::kInteger)
    Refuse("A constant expression was encountered in the ORDER BY list.");
  if (position < 1 || position > first.items.size())
    Refuse("The ORDER BY position number " + literal.value +
           " is out of range of the number of items in the select list.");
  return position - 1;
}

std::optional<std::size_t> SelectCompiler::FindItem(const std::string& name, const Core& core) {
  std::optional<std::size_t> found;
  for (std::size_t i = 0; i < core.items.size(); ++i) {
    if (!platform::EqualsIgnoringCase(core.items[i].name, name)) continue;
    if (found && core.items[*found].value.sql != core.items[i].value.sql)
      Refuse("Ambiguous column name '" + name + "'.");
    if (!found) found = i;
  }
  return found;
}

}  // namespace embedded
