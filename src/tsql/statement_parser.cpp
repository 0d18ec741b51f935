#include <limits>
#include <utility>

#include "tsql/expression_parser.h"
#include "tsql/parser.h"
#include "tsql/token_cursor.h"

namespace tsql {
namespace {

class StatementParser {
 public:
  explicit StatementParser(std::string_view text) : cursor_(text), expressions_(cursor_) {}

  StatementNode Parse() {
    StatementNode statement = ParseAny();
    cursor_.Accept(";");
    if (!cursor_.AtEnd()) cursor_.Refuse();
    return statement;
  }

 private:
  StatementNode ParseAny() {
    if (cursor_.At("SELECT")) return ParseSelect();
    if (cursor_.Accept("INSERT")) return ParseInsert();
    if (cursor_.Accept("UPDATE")) return ParseUpdate();
    if (cursor_.Accept("DELETE")) return ParseDelete();
    cursor_.Refuse();
  }

  Select ParseSelect() {
    Select select;
    select.cores.push_back(ParseCore());
    while (cursor_.Accept("UNION")) {
      select.unionAll.push_back(cursor_.Accept("ALL"));
      select.cores.push_back(ParseCore());
    }
    if (cursor_.Accept("ORDER")) {
      cursor_.Expect("BY");
      cursor_.TakeList([&] { select.orderBy.push_back(ParseOrderItem()); });
    }
    return select;
  }

  SelectCore ParseCore() {
    SelectCore core;
    cursor_.Expect("SELECT");
    core.distinct = cursor_.Accept("DISTINCT");
    if (!core.distinct) cursor_.Accept("ALL");
    if (cursor_.Accept("TOP")) core.top = ParseTop();
    cursor_.TakeList([&] { core.items.push_back(ParseItem()); });
    if (cursor_.Accept("FROM")) ParseFrom(core);
    core.where = ParseWhere();
    return core;
  }

  long ParseTop() {
    const bool bracketed = cursor_.Accept("(");
    const long count = cursor_.TakeInteger(0, std::numeric_limits<long>::max());
    if (bracketed) cursor_.Expect(")");
    return count;
  }

  SelectItem ParseItem() {
    SelectItem item;
    item.offset = cursor_.current().begin;
    item.star = cursor_.Accept("*") || AcceptTableStar(item.starTable);
    if (item.star) return item;
    item.expression = expressions_.ParseValue();
    if (cursor_.Accept("AS") || cursor_.AtName() || cursor_.AtString()) item.alias = cursor_.TakeAlias();
    return item;
  }

  // Takes `table.*`, or nothing.
  bool AcceptTableStar(std::string& table) {
    if (!cursor_.AtName() || !cursor_.FollowedBy(".")) return false;
    TokenCursor ahead = cursor_;
    std::string name = ahead.TakeName();
    ahead.Expect(".");
    if (!ahead.Accept("*")) return false;
    cursor_ = ahead;
    table = std::move(name);
    return true;
  }

  void ParseFrom(SelectCore& core) {
    core.from = ParseAliasedTable();
    while (true) {
      const bool left = cursor_.Accept("LEFT");
      if (left) {
        cursor_.Accept("OUTER");
      } else if (!cursor_.Accept("INNER") && !cursor_.At("JOIN")) {
        return;
      }
      cursor_.Expect("JOIN");
      Join join{left ? Join::Kind::kLeft : Join::Kind::kInner, ParseAliasedTable(), {}};
      cursor_.Expect("ON");
      join.on = expressions_.ParseCondition();
      core.joins.push_back(std::move(join));
    }
  }

  TableRef ParseTable() {
    TableRef table;
    table.offset = cursor_.current().begin;
    table.name = cursor_.TakeName();
    return table;
  }

  TableRef ParseAliasedTable() {
    TableRef table = ParseTable();
    if (cursor_.Accept("AS") || cursor_.AtName()) table.alias = cursor_.TakeName();
    return table;
  }

  // The condition, or nothing when there is none.
  ExpressionPtr ParseWhere() { return cursor_.Accept("WHERE") ? expressions_.ParseCondition() : nullptr; }

  OrderItem ParseOrderItem() {
    OrderItem item;
    item.expression = expressions_.ParseValue();
    item.descending = cursor_.Accept("DESC");
    if (!item.descending) cursor_.Accept("ASC");
    return item;
  }

  Insert ParseInsert() {
    Insert insert;
    cursor_.Accept("INTO");
    insert.table = ParseTable();
    cursor_.Expect("(");
    cursor_.TakeList([&] { insert.values.push_back(ParseColumn()); });
    cursor_.Expect(")");
    cursor_.Expect("VALUES");
    cursor_.Expect("(");
    for (std::size_t i = 0; i < insert.values.size(); ++i) {
      if (i > 0 && !cursor_.Accept(",")) RefuseCount("more columns in the INSERT statement than values");
      insert.values[i].value = expressions_.ParseValue();
    }
    if (cursor_.At(",")) RefuseCount("fewer columns in the INSERT statement than values");
    cursor_.Expect(")");
    return insert;
  }

  [[noreturn]] void RefuseCount(const std::string& difference) {
    cursor_.Refuse("There are " + difference + " specified in the VALUES clause.");
  }

  Assignment ParseColumn() {
    Assignment assignment;
    assignment.offset = cursor_.current().begin;
    assignment.column = cursor_.TakeName();
    return assignment;
  }

  Update ParseUpdate() {
    Update update;
    update.table = ParseTable();
    cursor_.Expect("SET");
    cursor_.TakeList([&] {
      Assignment assignment = ParseColumn();
      cursor_.Expect("=");
      assignment.value = expressions_.ParseValue();
      update.assignments.push_back(std::move(assignment));
    });
    update.where = ParseWhere();
    return update;
  }

  Delete ParseDelete() {
    Delete removal;
    cursor_.Accept("FROM");
    removal.table = ParseTable();
    removal.where = ParseWhere();
    return removal;
  }

  TokenCursor cursor_;
  ExpressionParser expressions_;
};

}  // namespace

StatementNode ParseStatement(std::string_view text) { return StatementParser(text).Parse(); }

}  // namespace tsql
