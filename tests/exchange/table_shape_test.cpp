#include "exchange/shape/table_shape.h"

#include <gtest/gtest.h>

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

TEST(TableShapeTest, ARowBesideThoseOfDataIsKnown) {
  const Header header{"Matrícula", "Litros", "Valor"};
  const std::pair<Header, RowClass> cases[] = {
      {{"10-GJ-10", "40", "60"}, RowClass::kData}, {{"Matrícula", "Litros", "Valor"}, RowClass::kHeaderAgain},
      {{"Total", "40", "60"}, RowClass::kTotal},   {{"Inactivas", "", ""}, RowClass::kSection},
      {{"10-GJ-10", "", ""}, RowClass::kData},
  };
  for (const auto& [texts, kind] : cases) EXPECT_EQ(ClassOf(Row(texts), header, 3), kind) << texts[0];
}

}  // namespace
}  // namespace exchange
