#include "support/sample_fleet.h"

#include <map>
#include <string>

#include "platform/format.h"
#include "support/files.h"
#include "tsql/parser.h"

namespace testing_support {
namespace {

using platform::Date;

/// Flags and other columns that hold the same in every row, and what the rules of the dates need.
const std::map<std::string, std::string> kFixed = {{"Inactiva", "0"},       {"Inactivo", "0"},
                                                   {"SeloPago", "0"},       {"Tacografo", "1"},
                                                   {"Categoria", "'LIGM'"}, {"TipoCarta", "1"}};

std::string Code(int n) { return std::string("'") + "ABC"[n % 3] + "'"; }

/// What stands in the n-th row (from 0) of a table in its i-th column.
std::string Value(const tsql::Table& table, int i, int n) {
  const tsql::Column& column = table.columns[static_cast<std::size_t>(i)];
  if (const auto fixed = kFixed.find(column.name); fixed != kFixed.end()) return fixed->second;
  if (column.name == "AnoMatricula") return std::to_string(2016 + n);
  const bool event = table.columns[0].identity;
  switch (column.type.base) {
    case tsql::BaseType::kNVarChar: {
      if (i == 0 || (event && i == 1)) return Code(n < 2 ? n : n - (event ? 1 : 0));
      const bool codes = column.name == "Motorista" || column.name == "TipoGasto" || column.name == "Viagem";
      if (codes || column.type.width == 10) return Code(n + i);
      return "'" + column.name.substr(0, 5) + std::to_string(n) + "'";
    }
    case tsql::BaseType::kDateTime: {
      const bool timed = column.name == "Data" && event;
      const Date date = Date::FromParts(2024, 3, 15, timed ? 9 + n : 0, timed ? 41 : 0, 0);
      const std::string format = timed ? "yyyy.mm.dd hh:mm:ss" : "yyyy.mm.dd";
      return "'" + platform::FormatDate(date.AddDays((i * 7 + n * 3) % 60 - 20), format) + "'";
    }
    case tsql::BaseType::kMoney:
      return std::to_string(10 * i + 100 * n) + ".25";
    default:
      return std::to_string((n + i) % 2);
  }
}

}  // namespace

const tsql::Catalog& Tables() {
  static const tsql::Catalog catalog =
      tsql::ParseSchema(Contents(std::string(PARVEL_SOURCE_DIR) + "/schema/tables.sql"));
  return catalog;
}

void AddSampleFleet(const zorCrmParvel::DataAccessRef& bd) {
  for (const tsql::Table& table : Tables().tables()) {
    if (table.name.rfind("zor_PV_", 0) != 0 && table.name != "zor_Funcionarios" &&
        table.name != "zor_CartasCond")
      continue;
    const bool event = table.columns[0].identity;
    for (int n = 0; n < (event ? 4 : 3); ++n) {
      std::string names;
      std::string values;
      for (std::size_t i = event ? 1 : 0; i < table.columns.size(); ++i) {
        names.append(names.empty() ? "" : ", ").append(table.columns[i].name);
        values.append(values.empty() ? "" : ", ").append(Value(table, static_cast<int>(i), n));
      }
      bd->ExecutarSql("", ("INSERT INTO " + table.name + " (" + names + ") VALUES (" + values + ")").c_str());
    }
  }
}

}  // namespace testing_support
