#include "sqlserver/schema/table_check.h"

#include <algorithm>
#include <map>
#include <optional>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "sqlserver/dialect.h"

namespace sqlserver {
namespace {

struct FoundColumn {
  platform::FieldInfo field;
  bool numbered;
};

std::string WidthText(long width) {
  return width >= platform::kUnlimitedSize ? std::string("max") : std::to_string(width);
}

/// The columns that the server numbers, as its catalogue tells; drivers don't always know.
class NumberedColumns {
 public:
  explicit NumberedColumns(Session& session) : asked_(*session.dialect().numberedColumns != '\0') {
    if (!asked_) return;
    session.Read(session.dialect().numberedColumns, [this](ResultReader& result) {
      rows_ = platform::RowStore(2);
      result.ReadAll(rows_);
    });
  }

  bool Has(const std::string& table, const std::string& column, bool driverSays) const {
    for (std::size_t row = 0; asked_ && row < rows_.rows(); ++row)
      if (platform::EqualsIgnoringCase(rows_.At(row, 0).block(), table) &&
          platform::EqualsIgnoringCase(rows_.At(row, 1).block(), column))
        return true;
    return !asked_ && driverSays;
  }

 private:
  bool asked_;
  platform::RowStore rows_{2};
};

/// The columns as a statement sees them; nothing when there is no such table.
std::optional<std::vector<FoundColumn>> ColumnsOf(Session& session, const NumberedColumns& numbered,
                                                  const std::string& table) {
  std::vector<FoundColumn> found;
  try {
    session.Read("SELECT * FROM " + Bracketed(table) + " WHERE 1 = 0", [&](ResultReader& result) {
      found.clear();
      for (std::size_t i = 0; i < result.fields().size(); ++i)
        found.push_back(
            {result.fields()[i], numbered.Has(table, result.fields()[i].name, result.IsNumbered(i))});
    });
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kInvalidObject) throw;
    return {};
  }
  return found;
}

/// What is wrong with a column; empty when nothing is.
std::string Fault(const tsql::Column& wanted, const std::vector<FoundColumn>& found) {
  const auto column = std::find_if(found.begin(), found.end(), [&](const FoundColumn& each) {
    return platform::EqualsIgnoringCase(each.field.name, wanted.name);
  });
  if (column == found.end()) return "falta a coluna, que é " + wanted.type.ToText();
  if (column->field.type != tsql::FieldTypeOf(wanted.type.base))
    return "a coluna é de outro tipo, e devia ser " + wanted.type.ToText();
  if (wanted.type.width != 0 && column->field.definedSize != wanted.type.width)
    return "a coluna tem a largura " + WidthText(column->field.definedSize) + ", e devia ter " +
           WidthText(wanted.type.width);
  if (wanted.identity && !column->numbered)
    return "a base de dados não numera a coluna, que devia ser IDENTITY(1,1)";
  return {};
}

/// The order of the database's texts.
void CheckCollation(Session& session, std::vector<std::string>& differences) {
  if (*session.dialect().collationTest == '\0') return;
  platform::RowStore answer(2);
  session.Read(session.dialect().collationTest, [&](ResultReader& result) {
    answer = platform::RowStore(2);
    result.ReadAll(answer);
  });
  if (answer.rows() == 0) return;
  if (answer.At(0, 0).integer() == 0)
    differences.emplace_back("Na base de dados «a» não é igual a «A»: precisa de uma collation com CI.");
  if (answer.At(0, 1).integer() != 0)
    differences.emplace_back("Na base de dados «a» é igual a «á»: precisa de uma collation com AS.");
}

}  // namespace

std::vector<std::string> Differences(Session& session, const tsql::Catalog& catalog) {
  std::vector<std::string> differences;
  CheckCollation(session, differences);
  const NumberedColumns numbered(session);
  for (const tsql::Table& table : catalog.tables()) {
    const auto found = ColumnsOf(session, numbered, table.name);
    if (!found) {
      differences.push_back(table.name + ": falta a tabela");
      continue;
    }
    for (const tsql::Column& column : table.columns)
      if (const std::string fault = Fault(column, *found); !fault.empty())
        differences.push_back(table.name + "." + column.name + ": " + fault);
  }
  return differences;
}

}  // namespace sqlserver
