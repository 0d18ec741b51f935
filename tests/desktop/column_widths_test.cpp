#include "desktop/list/column_widths.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <tuple>

#include "desktop/list/table_view.h"
#include "desktop/look/look.h"
#include "sheet.h"

namespace desktop_test {
namespace {

TEST(ColumnWidthsTest, ColumnsShareTheRoomByWhatTheyHold) {
  // What is given, held and least of each column, and its width in a room of 100.
  const std::tuple<const char*, std::vector<desktop::ColumnWish>, std::vector<double>> cases[] = {
      {"room for all, and some left over", {{40, 10}, {10, 20}}, {40, 20}},
      {"who is given too much gives way", {{80, 20}, {20, 60}}, {40, 60}},
      {"half of what is given too much", {{60, 20}, {60, 20}, {20, 20}}, {40, 40, 20}},
      {"the widest are cut", {{10, 20}, {10, 300}, {10, 90}}, {20, 40, 40}},
      {"never below their least", {{80, 200, 80}, {10, 200, 10}}, {80, 20}},
      {"even where that is too much", {{80, 200, 80}, {60, 60, 60}}, {80, 60}},
      {"nothing", {}, {}},
  };
  for (const auto& [what, wishes, expected] : cases) {
    SCOPED_TRACE(what);
    const std::vector<double> widths = desktop::ShareRoom(wishes, 100);
    ASSERT_EQ(widths.size(), expected.size());
    for (std::size_t i = 0; i < widths.size(); ++i) EXPECT_NEAR(widths[i], expected[i], 1e-6) << i;
  }
}

TEST(ColumnWidthsTest, ATableShowsItsNotesWholeWhereAnotherColumnHasTheRoom) {
  const QString note = "Validade da carta de condução ultrapassada há 12 dias!";
  desktop::TableView table(
      std::make_unique<Sheet>(
          std::vector<desktop::TableColumn>{{.key = "Matricula", .caption = "Matrícula", .width = 6000},
                                            {.key = "Notas", .caption = "Notas", .width = 1500},
                                            {.key = "Id", .caption = "Id", .width = 1500}},
          std::vector<Sheet::Line>{{{"12-AB-34", "-", "1"}, {}}, {{"34-CD-56", note, "2"}, 0}}),
      true, nullptr);
  table.resize(table.fontMetrics().horizontalAdvance(note) + desktop::Em(&table) * 14, 300);
  table.show();
  EXPECT_GT(table.columnWidth(1), table.fontMetrics().horizontalAdvance(note));
  EXPECT_EQ(table.horizontalScrollBar()->maximum(), 0);

  table.SetUserWidths({{"Matricula", 6000.0F}});
  EXPECT_EQ(table.columnWidth(0), desktop::FromTwips(6000, &table)) << "the user's own width stays";
  EXPECT_LT(table.columnWidth(1), table.fontMetrics().horizontalAdvance(note));
}

TEST(ColumnWidthsTest, ADateIsNeverCut) {
  const QString note = QStringLiteral("Posto de abastecimento ").repeated(4);
  desktop::TableView table(
      std::make_unique<Sheet>(
          std::vector<desktop::TableColumn>{{.key = "Data", .caption = "Data", .width = 300},
                                            {.key = "Notas", .caption = "Notas", .width = 300},
                                            {.key = "Id", .caption = "Id", .width = 300}},
          std::vector<Sheet::Line>{{{"02-01-2026 13:37:00", note, "1"}, {}}}),
      true, nullptr);
  table.resize(desktop::Em(&table) * 20, 300);
  table.show();
  EXPECT_GT(table.columnWidth(0), table.fontMetrics().horizontalAdvance("02-01-2026 13:37:00"));
  EXPECT_LT(table.columnWidth(1), table.fontMetrics().horizontalAdvance(note));
}

TEST(ColumnWidthsTest, NotesGiveWayToTheColumnsBehindThem) {
  const QString note = QStringLiteral("Data de pagamento a menos de dez dias, ").repeated(2);
  desktop::TableView table(
      std::make_unique<Sheet>(
          std::vector<desktop::TableColumn>{{.key = "Data", .caption = "Data", .width = 1500},
                                            {.key = "Notas", .caption = "Notas", .width = 9000},
                                            {.key = "Feito", .caption = "Feito", .width = 1500}},
          std::vector<Sheet::Line>{{{"02-01-2026", note, "Adiado até 03-12-2026"}, {}}}),
      true, nullptr);
  table.resize(desktop::Em(&table) * 36, 300);
  table.show();
  EXPECT_EQ(table.horizontalScrollBar()->maximum(), 0);
  EXPECT_GT(table.columnWidth(2), table.fontMetrics().horizontalAdvance("Adiado até 03-12-2026"));
}

}  // namespace
}  // namespace desktop_test
