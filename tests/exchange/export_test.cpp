#include <gtest/gtest.h>

#include <string>

#include "exchange/export/export_faces.h"
#include "exchange/export/export_value.h"
#include "exchange/export/report_table.h"
#include "exchange/table/zip_archive.h"
#include "exchange/table_files.h"
#include "platform/files.h"
#include "platform/text.h"
#include "support/files.h"
#include "support/whole_text.h"

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

/// A column of each kind and format, with cells that need care.
ExportTable Everything() {
  ExportTable table{.title = "Tudo & <mais>", .columns = {}, .rows = {}};
  table.columns = {{"Texto & \"nota\""},
                   {"Dia", ExportKind::kDate},
                   {"Momento", ExportKind::kDate, 20},
                   {"Inteiro", ExportKind::kNumber, 0, 0},
                   {"Medida", ExportKind::kNumber, 12, 3},
                   {"Euros", ExportKind::kMoney},
                   {"Por km", ExportKind::kMoney, 0, 4},
                   {"Pago", ExportKind::kTruth}};
  table.rows = {
      {" a\tb  c\n\x01 d'<>", Date::FromParts(2026, 7, 1), Date::FromParts(2026, 7, 1, 8, 5), 45.0, 0.125,
       Currency::Parse("-1234,5"), Currency::Parse("0,0001"), true},
      {std::string(70, 'x'), Date::FromParts(1900, 2, 28), Date(), -1e15, "", Currency(), "?", false},
      {"\r=1", Date::FromParts(1900, 3, 1), Date::FromParts(1900, 2, 28, 0, 1), 0.0, 2.5, Currency(12345678),
       Currency(2), true}};
  return table;
}

TEST(Export, FormatsWidthsAndMarksAreInTheFiles) {
  const TableFiles files;
  std::string text;
  for (const char* name : {"t.ods", "t.xlsx"}) {
    const std::string file = files.Path(name);
    WriteTable(Everything(), file, FormatOf(file));
    const ZipArchive archive(file);
    for (const char* part : {"mimetype", "META-INF/manifest.xml", "settings.xml", "content.xml",
                             "xl/worksheets/sheet1.xml", "xl/styles.xml"})
      if (archive.Has(part)) text += std::string("= ") + part + "\n" + archive.Small(part) + "\n";
  }
  WriteTable(Everything(), files.Path("t.csv"), ExportFormat::kCsv);
  text += "= html\n" + ClipboardHtml(Everything()) + "\n= csv\n" +
          testing_support::Contents(files.Path("t.csv")) + "= clipboard\n" + ClipboardText(Everything());
  for (std::size_t at = 0; (at = text.find("><", at)) != std::string::npos;) text.insert(at + 1, "\n");
  testing_support::ExpectWholeText(PARVEL_SOURCE_DIR "/tests/exchange/export.txt", text);
}

TEST(Export, NamesTheSheetAndKeepsWithinWhatItHolds) {
  const TableFiles files;
  const std::pair<const char*, const char*> titles[] = {
      {"", "Folha1"},
      {" '[]:*?/\\ ", "Folha1"},
      {"a[b]:*?/\\'c", "a b       c"},
      {"Despesas de Janeiro a Março de 2026", "Despesas de Janeiro a Março de"}};
  for (const auto& [title, sheet] : titles) {
    ExportTable table{.title = title, .columns = {{"a"}}, .rows = {{std::string(40000, 'x')}}};
    WriteTable(table, files.Path("t.xlsx"), ExportFormat::kXlsx);
    const auto xlsx = OpenTable(files.Path("t.xlsx"));
    EXPECT_EQ(xlsx->Sheets()[0].name, sheet);
    EXPECT_EQ(Dump(*xlsx), "1:a|\n2:" + std::string(32767, 'x') + "|\n");
    WriteTable(table, files.Path("t.ods"), ExportFormat::kOds);
    EXPECT_EQ(OpenTable(files.Path("t.ods"))->Sheets()[0].name, *title == '\0' ? sheet : title);
  }
  ExportTable table{.title = "", .columns = {{"a"}}, .rows = {}};
  table.rows.assign(1001, {std::string("x")});
  table.rows[1000][0] = std::string(30, 'y');
  EXPECT_EQ(WidthsOf(table), std::vector<int>{6}) << "beyond the first thousand rows";
  table.rows[999][0] = std::string(30, 'y');
  EXPECT_EQ(WidthsOf(table), std::vector<int>{32});
}

TEST(Export, AReportsColumnsAreOfTheirKinds) {
  using reports::Formato;
  reports::Tabela report;
  for (const Formato format : {Formato::kTexto, Formato::kEuros, Formato::kMedida, Formato::kPorUnidade,
                               Formato::kInteiro, Formato::kData, Formato::kLogico})
    report.colunas.push_back(
        {.chave = "", .titulo = std::to_string(static_cast<int>(format)), .formato = format});
  report.colunas[0].soParaMaquinas = true;
  report.linhas = {
      {{"t", Currency(1), "", Currency(2), std::int64_t{3}, Date::FromParts(2026, 1, 2), true}, {}},
      {{"", {}, {}, {}, {}, Date(), false}, {}}};
  const ExportTable table = ExportTableOf(report, "Título");
  std::string all = table.title;
  for (const ExportColumn& column : table.columns)
    all += " " + column.heading + ":" + std::to_string(static_cast<int>(column.kind)) + "," +
           std::to_string(column.decimals);
  EXPECT_EQ(all, "Título 1:2,2 2:2,2 3:2,4 4:1,0 5:3,2 6:4,2");
  EXPECT_EQ(ClipboardText(table), "1\t2\t3\t4\t5\t6\n1,00\t\t2,0000\t3\t02-01-2026\tSim\n\t\t\t\t\tNão\n");
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
  const std::string database = files.Put("b.csv", "dados");
  const platform::FileInUse inUse(database);
  EXPECT_THROW(WriteTable(Expenses(), database, ExportFormat::kCsv), std::runtime_error);
  EXPECT_EQ(testing_support::Contents(database), "dados");
}

TEST(Export, TakesAListsValuesForWhatTheyAre) {
  using platform::Variant;
  const Date day = Date::FromParts(2026, 1, 1);
  // A column each: the first cell that holds something tells.
  const struct {
    std::vector<ExportCell> cells;
    ExportKind kind;
    int decimals;
  } columns[] = {{{CellOf(Variant::Null{}, ""), CellOf(Currency(2), "2,00")}, ExportKind::kMoney, 2},
                 {{CellOf(Date(), ""), CellOf(day, "01-01-2026")}, ExportKind::kDate, 2},
                 {{CellOf(3, "3"), CellOf(2.5, "2,5")}, ExportKind::kNumber, 2},
                 {{CellOf(2.5, "2,5"), CellOf(3, "3")}, ExportKind::kNumber, 2},
                 {{CellOf(std::int16_t{4}, "4"), CellOf(3, "3")}, ExportKind::kNumber, 0},
                 {{CellOf(Variant(), ""), CellOf(true, "Sim")}, ExportKind::kTruth, 2},
                 {{CellOf(9999999, "por km"), CellOf(3, "3")}, ExportKind::kText, 2},
                 {{CellOf("0001", "0001"), CellOf(3, "3")}, ExportKind::kText, 2}};
  for (const auto& column : columns) {
    ExportTable table{.title = "", .columns = {{"a"}}, .rows = {{column.cells[0]}, {column.cells[1]}}};
    DescribeColumn(table, 0);
    EXPECT_EQ(table.columns[0].kind, column.kind);
    EXPECT_EQ(table.columns[0].decimals, column.decimals);
  }
}

}  // namespace
}  // namespace exchange
