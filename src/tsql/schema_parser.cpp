#include <utility>

#include "tsql/parser.h"
#include "tsql/token_cursor.h"
#include "tsql/type_parser.h"

namespace tsql {
namespace {

class SchemaParser {
 public:
  explicit SchemaParser(std::string_view text) : cursor_(text) {}

  Catalog Parse() {
    while (true) {
      while (cursor_.Accept(";")) {
      }
      if (cursor_.AtEnd()) return std::move(catalog_);
      cursor_.Expect("CREATE");
      if (cursor_.Accept("TABLE")) {
        catalog_.Add(ParseTable());
      } else {
        catalog_.Add(ParseIndex());
      }
      if (!cursor_.AtEnd() && !cursor_.At(";")) cursor_.Refuse();
    }
  }

 private:
  Table ParseTable() {
    Table table;
    table.name = cursor_.TakeName();
    cursor_.Expect("(");
    cursor_.TakeList([&] {
      if (cursor_.Accept("CONSTRAINT")) {
        cursor_.TakeName();
        cursor_.Expect("PRIMARY");
        cursor_.Expect("KEY");
        table.primaryKey = ParseColumnNames();
      } else {
        table.columns.push_back(ParseColumn());
      }
    });
    cursor_.Expect(")");
    return table;
  }

  Column ParseColumn() {
    Column column;
    column.name = cursor_.TakeName();
    column.type = ParseType(cursor_);
    if (cursor_.Accept("IDENTITY")) {
      column.identity = true;
      cursor_.Expect("(");
      cursor_.TakeInteger(1, 1);
      cursor_.Expect(",");
      cursor_.TakeInteger(1, 1);
      cursor_.Expect(")");
    }
    column.nullable = !cursor_.Accept("NOT");
    if (!column.nullable || cursor_.At("NULL")) cursor_.Expect("NULL");
    return column;
  }

  Index ParseIndex() {
    Index index;
    index.unique = cursor_.Accept("UNIQUE");
    cursor_.Expect("INDEX");
    index.name = cursor_.TakeName();
    cursor_.Expect("ON");
    index.table = cursor_.TakeName();
    index.columns = ParseColumnNames();
    return index;
  }

  std::vector<std::string> ParseColumnNames() {
    std::vector<std::string> names;
    cursor_.Expect("(");
    cursor_.TakeList([&] { names.push_back(cursor_.TakeName()); });
    cursor_.Expect(")");
    return names;
  }

  TokenCursor cursor_;
  Catalog catalog_;
};

}  // namespace

Catalog ParseSchema(std::string_view text) { return SchemaParser(text).Parse(); }

}  // namespace tsql
