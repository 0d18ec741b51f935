#include <gtest/gtest.h>

#include <string>

#include "exchange/export/export_table.h"
#include "exchange/export/export_value.h"
#include "exchange/table_files.h"

namespace exchange {
namespace {

using platform::Currency;
using platform::Date;

ExportTable Expenses() {
  ExportTable table{.title = "Gastos: 1/2", .columns = {}, .rows = {}};
  table.columns = {{"Matrícula"},
                   {"Data", ExportKind::kDate},
                   {"Litros", ExportKind::kNumber, 0, 3},
                   {"Custo", ExportKind::kMoney},
                   {"Pago", ExportKind::kTruth}};
  table.rows = {{"=10-GJ-10", Date::FromParts(2026, 7, 1, 8, 15), 45.125, Currency::Parse("1234,5"), true},
                {"a;\"b\"\n <c>  d", Date(), "a definir", Currency::Parse("-0,01"), false}};
  return table;
}

TEST(Export, WritesWhatTheReaderReadsBack) {
  const TableFiles files;
  const std::string head =
      "1:Matr\xC3\xAD"
      "cula|Data|Litros|Custo|Pago|\n";
  const std::string first = "2:=10-GJ-10|d01-07-2026 08:15:00|n45.125|n1234.5|bVERDADEIRO|\n";
  const std::string second = "3:a;\"b\"\n <c>  d||a definir|n-0.01|bFALSO|\n";
  const std::string whole = head + first + second;
  for (const char* name : {"gastos.xlsx", "gastos.ODS"}) {
    SCOPED_TRACE(name);
    const std::string file = files.Put(name, "o que lá estava");
    WriteTable(Expenses(), file, FormatOf(file));
    const auto table = OpenTable(file);
    EXPECT_EQ(table->Facts().format, file.ends_with("x") ? "XLSX" : "ODS");
    EXPECT_EQ(Dump(*table), whole);
    EXPECT_EQ(std::filesystem::status(file).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  }
  const std::string csv = files.Path("gastos.csv");
  WriteTable(Expenses(), csv, FormatOf(csv));
  const auto table = OpenTable(csv);
  EXPECT_EQ(Dump(*table), head + "2:'=10-GJ-10|01-07-2026 08:15:00|45,125|1234,50|Sim|\n" +
                              "3:a;\"b\"\n <c>  d||a definir|-0,01|Não|\n");
}

TEST(Export, LeavesTheFileAsItWasWhereItCannotWrite) {
  const TableFiles files;
  std::filesystem::create_directories(files.Path("pasta.xlsx"));
  for (const char* name : {"pasta.xlsx", "falta/x.ods", "falta/x.csv", "falta/x.xlsx"}) {
    const std::string file = files.Path(name);
    EXPECT_THROW(WriteTable(Expenses(), file, FormatOf(file)), std::runtime_error) << name;
    EXPECT_FALSE(std::filesystem::exists(file + ".incompleto"));
  }
  EXPECT_THROW(FormatOf("gastos.pdf"), std::runtime_error);
}

TEST(Export, PutsCellsOnTheClipboard) {
  EXPECT_EQ(ClipboardText(Expenses()),
            "Matrícula\tData\tLitros\tCusto\tPago\n=10-GJ-10\t01-07-2026 08:15:00\t45,125\t1234,50\tSim\n"
            "a;\"b\"  <c>  d\t\ta definir\t-0,01\tNão\n");
  const TableFiles files;
  const auto page = OpenTable(files.Put("c.html", ClipboardHtml(Expenses())));
  EXPECT_EQ(Dump(*page),
            "1:Matrícula|Data|Litros|Custo|Pago|\n2:=10-GJ-10|01-07-2026 08:15:00|45,125|1234,50|Sim|\n"
            "3:a;\"b\" <c> d||a definir|-0,01|Não|\n");
}

TEST(Export, TakesAListsValuesForWhatTheyAre) {
  ExportTable table{.title = "", .columns = {{"a"}, {"b"}, {"c"}, {"d"}}, .rows = {}};
  table.rows.push_back(
      {CellOf(platform::Variant::Null{}, ""), CellOf(Date(), ""), CellOf(3, "3"), CellOf(9999999, "por km")});
  table.rows.push_back({CellOf(Currency(2), "2,00"), CellOf(Date::FromParts(2026, 1, 1), "01-01-2026"),
                        CellOf(2.5, "2,5"), CellOf("0001", "0001")});
  for (std::size_t i = 0; i < table.columns.size(); ++i) DescribeColumn(table, i);
  const ExportKind kinds[] = {ExportKind::kMoney, ExportKind::kDate, ExportKind::kNumber, ExportKind::kText};
  for (std::size_t i = 0; i < table.columns.size(); ++i) EXPECT_EQ(table.columns[i].kind, kinds[i]) << i;
  EXPECT_EQ(table.columns[2].decimals, 2);
}

}  // namespace
}  // namespace exchange
