#include "lists/row_order.h"

#include <gtest/gtest.h>

#include <tuple>

#include "lists/footer.h"
#include "lists/values.h"
#include "platform/runtime_error.h"
#include "support/scripted_host.h"

namespace {

using lists::RowOrder;
using lists::SortBy;
using lists::SortDirection;
using lists_tests::Shown;
using lists_tests::Values;
using platform::Date;
using platform::Variant;

TEST(RowOrderTest, SortsByWhatAColumnHolds) {
  const std::tuple<const char*, std::vector<Variant>, std::vector<long>> cases[] = {
      {"numbers as numbers", {10, 9, Variant::Null(), 100}, {2, 1, 0, 3}},
      {"dates as dates", {Date::FromParts(2024, 2, 1), Date::FromParts(2023, 12, 31)}, {1, 0}},
      {"texts that are dates", {"01-12-2024", "02-01-2024", "", "15-06-2023 10:30:00"}, {2, 3, 1, 0}},
      {"texts without regard to case and accents", {"Zé", "árvore", "Banana", "arvore"}, {3, 1, 2, 0}},
      {"codes with numbers by their numbers", {"R10", "R9", "r1"}, {2, 1, 0}},
      {"dashes of any kind alike", {"a-10", "a–2"}, {1, 0}},
      {"a text among dates", {"02-01-2024", "sem data", "01-12-2024"}, {2, 0, 1}},
      {"a number among dates", {Date::FromParts(2024, 2, 1), 3, Date::FromParts(2023, 1, 2)}, {0, 2, 1}},
      {"zeros before a number as nothing", {"a10", "a009", "a8", "a0", "a1b2", "a1b1"}, {3, 5, 4, 2, 1, 0}},
      {"numbers below nought", {-1, 2, -3, 0, Variant::Null()}, {4, 2, 0, 3, 1}},
  };
  for (const auto& [what, column, ascending] : cases) {
    SCOPED_TRACE(what);
    const Values values(column);
    RowOrder order(values);
    order.Sort(SortBy{0, SortDirection::kAscending});
    EXPECT_EQ(Shown(order), ascending);
    order.Sort(SortBy{0, SortDirection::kDescending});
    EXPECT_EQ(Shown(order), std::vector<long>(ascending.rbegin(), ascending.rend()));
  }
}

TEST(RowOrderTest, EqualOnesKeepTheTablesOrderEitherWay) {
  const Values values({"x", "a", "A", "a", "X", ""});
  RowOrder order(values);
  order.Sort(SortBy{0, SortDirection::kAscending});
  EXPECT_EQ(Shown(order), (std::vector<long>{5, 1, 2, 3, 0, 4}));
  order.Sort(SortBy{0, SortDirection::kDescending});
  EXPECT_EQ(Shown(order), (std::vector<long>{0, 4, 1, 2, 3, 5}));
}

TEST(RowOrderTest, NarrowingAndWideningASearchKeepsTheSort) {
  const Values values({"beta", "alfa", "gama", "alga"});
  RowOrder order(values);
  order.Sort(SortBy{0, SortDirection::kDescending});
  order.Search("al");
  EXPECT_EQ(Shown(order), (std::vector<long>{3, 1}));
  order.Search("alf");
  EXPECT_EQ(Shown(order), (std::vector<long>{1}));
  EXPECT_EQ(order.PlaceOf(3), -1);
  order.Search("a");
  EXPECT_EQ(Shown(order), (std::vector<long>{2, 0, 3, 1}));
  order.Search("");
  order.Sort({});
  EXPECT_EQ(Shown(order), (std::vector<long>{0, 1, 2, 3}));
}

TEST(RowOrderTest, ATablesOwnOrderReadsNothing) {
  const Values values(std::vector<Variant>(100'000, Variant("x")));
  RowOrder order(values);
  order.Rebuild();
  EXPECT_EQ(order.Count(), 100'000);
  EXPECT_EQ(order.RowAt(99'999), 99'999);
  EXPECT_EQ(values.reads, 0);
}

/// "0 1 | 3" : rows, with a heading "[title count]" before those of a group.
std::string Places(const RowOrder& order) {
  std::string text;
  for (long place = 0; place < order.Count(); ++place) {
    const lists::RowGroup* group = order.HeadingAt(place);
    text += place == 0 ? "" : " ";
    text += group != nullptr ? "[" + group->title + " " + std::to_string(group->rows.size()) + "]"
                             : std::to_string(order.RowAt(place));
  }
  return text;
}

const std::vector<std::vector<Variant>> kFleet = {
    {"10-GJ-10", "12-AB-34", "10-GJ-10", "99-ZZ-99"},
    {Date::FromParts(2026, 11, 24, 13, 45), Date::FromParts(2026, 10, 1), Date::FromParts(2026, 11, 1),
     Variant::Null()},
    {platform::Currency(10), platform::Currency::Parse("12,5"), platform::Currency(-3), Variant::Null()}};

TEST(RowOrderTest, WordsMayBeInAnyCellsAndFiltersAddUp) {
  testing_support::ScriptedHost host;
  const Values values(kFleet);
  RowOrder order(values);
  order.Search("2026 gj 13:45");
  EXPECT_EQ(Places(order), "0");
  order.Search("10 gj");
  order.Filter(2, "> 0");
  EXPECT_EQ(Places(order), "0");
  order.Filter(2, "");
  order.Filter(1, "11-2026");
  order.Sort(SortBy{1, SortDirection::kAscending});
  EXPECT_EQ(Places(order), "2 0");
  EXPECT_THROW(order.Filter(2, "muito"), platform::RuntimeError);
  EXPECT_EQ(Places(order), "2 0") << "what can't be read keeps no row away";
  EXPECT_TRUE(order.IsNarrowed());
  order.ShowAll();
  EXPECT_EQ(Places(order), "3 1 2 0");
  order.Search("ab");
  EXPECT_EQ(Places(order), "1") << "letters are looked for in texts";
}

TEST(RowOrderTest, WhatNoLongerHasItsColumnIsLeftOut) {
  testing_support::ScriptedHost host;
  Values values(kFleet);
  RowOrder order(values);
  order.Sort(SortBy{2, SortDirection::kAscending});
  order.Filter(2, "> -5");
  EXPECT_EQ(Places(order), "2 0 1");
  EXPECT_EQ(order.PlaceOf(0), 1);
  EXPECT_EQ(order.PlaceOf(-1), -1);
  order.GroupBy(2);
  EXPECT_EQ(order.RowAt(0), -1) << "a heading is no row";
  EXPECT_EQ(order.HeadingAt(-1), nullptr);
  EXPECT_EQ(order.HeadingAt(order.Count()), nullptr);
  order.OpenAll(true);
  EXPECT_EQ(Places(order), "[-3 1] 2 [10 1] 0 [12,5 1] 1");
  EXPECT_EQ(order.FindBeginning(0, "12", 0), 5);
  order.Turn(1);  // a row
  EXPECT_EQ(Places(order), "[-3 1] 2 [10 1] 0 [12,5 1] 1");
  values.Put(2, 2, Variant(-6));
  order.Rebuild();
  EXPECT_EQ(Places(order), "[10 1] 0 [12,5 1] 1") << "it is read anew";
  values.Drop();
  order.Rebuild();
  EXPECT_EQ(Places(order), "0 1 2 3");
  EXPECT_EQ(order.PlaceOf(3), 3);
  EXPECT_EQ(order.PlaceOf(4), -1);
  EXPECT_EQ(order.RowCount(), 4);
  EXPECT_EQ(order.FindBeginning(0, "", 0), -1);
}

TEST(RowOrderTest, GroupsHaveHeadingsAndOpenOneByOne) {
  testing_support::ScriptedHost host;
  const Values values(kFleet);
  RowOrder order(values);
  order.GroupBy(0);
  order.Sort(SortBy{2, SortDirection::kDescending});
  EXPECT_EQ(Places(order), "[10-GJ-10 2] [12-AB-34 1] [99-ZZ-99 1]");
  order.Turn(0);
  EXPECT_EQ(Places(order), "[10-GJ-10 2] 0 2 [12-AB-34 1] [99-ZZ-99 1]");
  EXPECT_EQ(order.PlaceOf(2), 2);
  EXPECT_EQ(order.PlaceOf(1), -1);
  EXPECT_EQ(order.RowCount(), 4);
  order.Rebuild();
  EXPECT_EQ(order.Count(), 5) << "an open group stays open";
  order.Turn(0);
  EXPECT_EQ(order.Count(), 3);
  order.Turn(1);
  EXPECT_EQ(Places(order), "[10-GJ-10 2] [12-AB-34 1] 1 [99-ZZ-99 1]");
  order.OpenAll(false);
  EXPECT_EQ(order.Count(), 3);
  order.Filter(0, "= 12-ab-34");
  EXPECT_EQ(Places(order), "[12-AB-34 1]");
  order.ShowAll();
  order.GroupBy(1);
  order.OpenAll(true);
  EXPECT_EQ(Places(order), "[(sem valor) 1] 3 [10-2026 1] 1 [11-2026 2] 0 2");
  order.Sort(SortBy{1, SortDirection::kDescending});
  EXPECT_EQ(Places(order), "[11-2026 2] 0 2 [10-2026 1] 1 [(sem valor) 1] 3");
}

TEST(RowOrderTest, SumsAreExactAndSkipWhatIsNoNumber) {
  const Values values(kFleet);
  const RowOrder order(values);
  const lists::Figures all = order.FiguresOf(2, order.Rows());
  EXPECT_EQ(all.count, 3);
  EXPECT_EQ(all.sum.ToText(), "19,5");
  EXPECT_EQ(all.Mean().ToText(), "6,5");
  EXPECT_EQ(order.FiguresOf(2, {2}).sum.ToText(), "-3");
  EXPECT_EQ(order.FiguresOf(0, order.Rows()).count, 0);
}

TEST(RowOrderTest, TheFooterTellsWhatIsSummed) {
  testing_support::ScriptedHost host;
  const Values values(kFleet);
  const RowOrder order(values);
  using lists::Summed;
  const std::vector<lists::SummedColumn> columns = {{2, "Custo", "###,##0.00", Summed::kSumAndMean},
                                                    {2, "Km", "###,##0", Summed::kMean},
                                                    {2, "Nada", "0", Summed::kNo},
                                                    {0, "Matrícula", "0", Summed::kMean}};
  EXPECT_EQ(FooterText(order, columns, order.Rows()), "Custo: soma 19,50, média 6,50 · Km: média 7");
  EXPECT_EQ(FooterText(order, columns, {3}), "");
  std::string subtotals;
  for (const lists::SummedColumn& column : columns) subtotals += SubtotalText(order, column, {0, 1}) + ";";
  EXPECT_EQ(subtotals, "22,50;⌀ 11;;;");
}

TEST(RowOrderTest, TypedLettersGoRoundToTheNextRowThatBeginsSo) {
  const Values values(kFleet);
  RowOrder order(values);
  EXPECT_EQ(order.FindBeginning(0, "10g", 0), 0);
  EXPECT_EQ(order.FindBeginning(0, "10-G", 1), 2);
  EXPECT_EQ(order.FindBeginning(0, "12", 3), 1);
  EXPECT_EQ(order.FindBeginning(0, "x", 0), -1);
  const auto occurring = order.Occurring(0);
  ASSERT_EQ(occurring.size(), 3U);
  EXPECT_EQ(occurring[0], std::make_pair(std::string("10-GJ-10"), 2L));
}

}  // namespace
