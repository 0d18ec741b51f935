#include "exchange/shape/table_shape.h"

#include <gtest/gtest.h>

#include "exchange/import.h"
#include "exchange/shape/column_words.h"
#include "exchange/shape/profile_guess.h"
#include "support/whole_text.h"

namespace exchange {
namespace {

using Header = std::vector<std::string>;

TableRow Row(const Header& texts) {
  TableRow row;
  for (const std::string& text : texts)
    row.cells.push_back({text.empty() ? CellKind::kEmpty : CellKind::kText, text});
  return row;
}

TEST(TableShapeTest, AHeadingOverSeveralColumnsIsThatOfEach) {
  const std::vector<TableRow> rows{Row({"Lista de Julho"}), Row({"Viatura", "Combustível", "", "Total"}),
                                   Row({"Matrícula", "Litros", "Valor", "Total"})};
  EXPECT_EQ(HeaderTexts(rows, 1, 2),
            (Header{"Viatura Matrícula", "Combustível Litros", "Combustível Valor", "Total"}));
  EXPECT_EQ(HeaderTexts(rows, 2, 1), (Header{"Matrícula", "Litros", "Valor", "Total"}));
  EXPECT_TRUE(HeaderTexts(rows, 1, 0).empty());
}

TEST(TableShapeTest, TheHeaderIsFoundByItsWordsOrByWhatStandsBelow) {
  const struct {
    const char* what;
    std::vector<Header> rows;
    std::size_t before;
    std::size_t headerRows;
  } cases[] = {
      {"known words", {{"Matrícula", "Data", "Valor"}, {"12-AB-34", "01-02-2024", "5"}}, 0, 1},
      {"below titles", {{"Extracto"}, {"de Julho"}, {"Matrícula", "Data"}, {"12-AB-34", "01-02-2024"}}, 2, 1},
      {"under a heading of several columns",
       {{"Viatura", "", "Gasto"}, {"Matrícula", "Marca", "Data"}, {"12-AB-34", "REN", "01-02-2024"}},
       0,
       2},
      {"with a line more below",
       {{"Matrícula", "Data", "Custo"}, {"(chave)", "(dia)", "(euros)"}, {"12-AB-34", "01-02-2024", "5"}},
       0,
       2},
      {"words that nobody knows above numbers", {{"abc", "def"}, {"1", "2"}}, 0, 1},
      {"few words above many numbers are none", {{"abc", "def"}, {"1", "2", "3", "4"}}, 1, 0},
      {"records without a header", {{"H", "1"}, {"D", "2"}}, 0, 0},
      {"below a title", {{"EMPRESA"}, {"D", "2"}}, 1, 0},
      {"texts alone", {{"a"}, {"b"}, {"c"}}, 0, 0},
      {"texts alone below known words", {{"Código", "Nome"}, {"A", "Um"}, {"B", "Dois"}}, 0, 1},
      {"nothing", {}, 0, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    std::vector<TableRow> rows;
    for (const Header& texts : c.rows) {
      rows.push_back(Row(texts));
      rows.back().line = static_cast<long>(rows.size());
    }
    const TableShape shape = FindShape(rows);
    EXPECT_EQ(shape.before, c.before);
    EXPECT_EQ(shape.headerRows, c.headerRows);
  }
}

/// How well a heading fits the columns of a kind, "gastos: Litros"; of the kind alone what people call them.
std::string FitsOf(const std::string& input) {
  const std::size_t colon = std::min(input.find(": "), input.size());
  const ImportKind& kind = *KindOf(input.substr(0, colon));
  std::vector<std::string> columns = {"Hora"};
  for (const ImportColumn& column : ColumnsOfKind(kind.name)) columns.emplace_back(column.name);
  std::string all;
  for (const std::string& column : columns)
    if (colon == input.size())
      all += (all.empty() ? "" : "; ") + column + "=" + LabelOf(kind, column);
    else if (const int fit = Fit(kind, column, input.substr(colon + 2)); fit > 0)
      all += (all.empty() ? "" : "; ") + column + " " + std::to_string(fit);
  return all;
}

TEST(TableShapeTest, HeadingsFitColumnsAsIsWrittenDown) {
  testing_support::ExpectCases(PARVEL_SOURCE_DIR "/tests/exchange/headings.txt", FitsOf);
}

TEST(TableShapeTest, ARowBesideThoseOfDataIsKnown) {
  const Header header{"Matrícula", "Litros", "Valor"};
  const std::pair<Header, RowClass> cases[] = {
      {{"10-GJ-10", "40", "60"}, RowClass::kData},
      {{"Matrícula", "Litros", "Valor"}, RowClass::kHeaderAgain},
      {{"Total", "40", "60"}, RowClass::kTotal},
      {{"Inactivas", "", ""}, RowClass::kSection},
      {{"10-GJ-10", "", ""}, RowClass::kData},
      {{"", "", ""}, RowClass::kTotal},
      {{"Matrícula", "", ""}, RowClass::kSection},
      {{"", "Ligeiros", ""}, RowClass::kSection},
      {{"", "", "Ligeiros"}, RowClass::kData},
      {{"Ligeiros", "1", ""}, RowClass::kData},
      {{"Totalizador", "40", "60"}, RowClass::kData},
      {{"Saldo anterior", "", "60"}, RowClass::kTotal},
      {{"Sub-total", "40", ""}, RowClass::kTotal},
      {{"SOMA", "", "60"}, RowClass::kTotal},
  };
  for (const auto& [texts, kind] : cases) EXPECT_EQ(ClassOf(Row(texts), header, 3), kind) << texts[0];
  for (const std::string word :
       {"Total", "Totais", "Subtotal", "Sub-total", "Soma", "Somatório", "Saldo", "A transportar",
        "Transporte", "Página", "Page", "Suma", "Somme", "Sum", "Grand total", "Balance"}) {
    EXPECT_EQ(ClassOf(Row({word, "1", "2"}), header, 3), RowClass::kTotal) << word;
    EXPECT_EQ(ClassOf(Row({"", word + ": 3", "2"}), header, 3), RowClass::kTotal) << word;
    EXPECT_EQ(ClassOf(Row({word + "x", "1", "2"}), header, 3), RowClass::kData) << word;
  }
  EXPECT_EQ(ClassOf(Row({"Ligeiros", ""}), header, 2), RowClass::kData) << "a narrow table has no sections";
}

TEST(TableShapeTest, TheSendersNumberOfARowIsKnownByItsHeading) {
  for (const char* name : {"N.º transacção",  "No transaccao",  "N transacao",
                           "No transação",    "Transaction ID", "Transaction number",
                           "ID transacção",   "ID transação",   "Transaction No",
                           "N.º talão",       "N talão",        "Talão",
                           "Receipt",         "Receipt number", "Número transacção",
                           "N.º movimento",   "Session ID",     "ID sessão",
                           "N.º recibo",      "N recibo",       "ID de la operación",
                           "Número operación"}) {
    const Profile profile = GuessProfile(*KindOf("gastos"), {Row({"Matrícula", "Data", "Valor", name}),
                                                             Row({"12-AB-34", "01-02-2024", "5", "7"})});
    ASSERT_TRUE(profile.transaction) << name;
    EXPECT_EQ(profile.transaction->position, 3);
    EXPECT_EQ(profile.transaction->header, name);
  }
}

TEST(TableShapeTest, AColumnOfHoursIsOfTheDateWhereThatHasNone) {
  const auto day = platform::Date::FromParts(2024, 2, 1);
  const std::pair<TableCell, std::size_t> cases[] = {
      {{CellKind::kDate, "01-02-2024", 0, day}, 2},
      {{CellKind::kDate, "01-02-2024 13:05", 0, platform::Date::FromParts(2024, 2, 1, 13, 5, 0)}, 1},
      {{CellKind::kText, "01-02-2024"}, 2},
      {{CellKind::kText, "01-02-2024 13:05"}, 1}};
  for (const auto& [cell, pieces] : cases) {
    TableRow row = Row({"12-AB-34", "", "13:05", "5"});
    row.cells[1] = cell;
    const Profile profile =
        GuessProfile(*KindOf("gastos"), {Row({"Matrícula", "Data", "Hora", "Valor"}), row});
    ASSERT_NE(profile.Find("Data"), nullptr);
    EXPECT_EQ(profile.Find("Data")->pieces.size(), pieces) << cell.text;
  }
}

}  // namespace
}  // namespace exchange
