#include "lists/row_order.h"

#include <gtest/gtest.h>

#include <tuple>

#include "lists/footer.h"
#include "lists/words.h"
#include "platform/format.h"
#include "platform/runtime_error.h"
#include "support/scripted_host.h"

namespace {

using lists::RowOrder;
using lists::SortBy;
using lists::SortDirection;
using platform::Date;
using platform::Variant;

/// Columns of values; counts how often one is read.
class Values : public lists::Cells {
 public:
  explicit Values(std::vector<Variant> values) : columns_{std::move(values)} {}
  explicit Values(std::vector<std::vector<Variant>> columns) : columns_(std::move(columns)) {}

  long Rows() const override { return static_cast<long>(columns_[0].size()); }
  std::size_t ColumnCount() const override { return columns_.size(); }
  bool IsSearched(std::size_t) const override { return true; }
  std::string Shown(long row, std::size_t column) const override {
    const Variant value = Value(row, column);
    return value.IsNull() ? std::string() : value.ToText();
  }
  Variant Value(long row, std::size_t column) const override {
    ++reads;
    return columns_[column][static_cast<std::size_t>(row)];
  }

  /// Takes the last column away.
  void Drop() { columns_.pop_back(); }

  mutable int reads = 0;

 private:
  std::vector<std::vector<Variant>> columns_;
};

std::vector<long> Shown(const RowOrder& order) {
  std::vector<long> rows;
  for (long place = 0; place < order.Count(); ++place) rows.push_back(order.RowAt(place));
  return rows;
}

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

TEST(RowOrderTest, SearchesWithoutRegardToCaseAccentsHyphensAndBlanks) {
  const Values values({"12-AB-34", "Maria José", "Gonçalves", "maria  jose", "AB 12 34"});
  const std::pair<const char*, std::vector<long>> cases[] = {
      {"12ab", {0}},  {"MARIA JOSÉ", {1, 3}}, {"mariaj", {1, 3}}, {"goncal", {2}},
      {"ab-12", {4}}, {"34", {0, 4}},         {"nada", {}},       {"  ", {0, 1, 2, 3, 4}}};
  for (const auto& [text, found] : cases) {
    SCOPED_TRACE(text);
    RowOrder order(values);
    order.Search(text);
    EXPECT_EQ(Shown(order), found);
  }
}

/// Numbers by a mask, dates without their time.
class Masked : public Values {
 public:
  Masked(std::vector<Variant> values, const char* mask) : Values(std::move(values)), mask_(mask) {}
  std::string Shown(long row, std::size_t column) const override {
    ++shown;
    const Variant value = Value(row, column);
    if (value.IsNull()) return {};
    return value.As<Date>() != nullptr ? platform::FormatDate(*value.As<Date>(), mask_)
                                       : platform::FormatNumber(value, mask_);
  }
  mutable int shown = 0;

 private:
  const char* mask_;
};

TEST(RowOrderTest, DigitsAreFoundInNumbersAndDatesAsTheyAreShown) {
  std::vector<Variant> numbers;
  std::vector<Variant> dates;
  for (int i = 0; i < 5000; ++i) {
    // What differs between ways to show them stands in few rows only.
    const bool odd = i % 1000 == 999;
    numbers.emplace_back(odd ? platform::Currency::FromTenThousandths(-12'345'678 - i)
                             : platform::Currency(i % 90));
    dates.emplace_back(Date::FromParts(2026, 1, 1, odd ? 13 : 0, odd ? 45 : 0).AddDays(i % 700));
  }
  numbers[7] = dates[7] = Variant::Null();
  const std::pair<const std::vector<Variant>*, const char*> columns[] = {
      {&numbers, "###,###,##0.00"}, {&numbers, "###,###,##0.000"}, {&numbers, "###,###,##0"},
      {&dates, "dd-mm-yyyy"},       {&dates, "dd-mm-yyyy hh:mm"},  {&dates, "yyyy"}};
  for (const auto& [values, mask] : columns)
    for (const char* word : {"1", "34,5", "234", "1.235", "5,6", "89,0", "2402", "45", "2026", "13:4"}) {
      SCOPED_TRACE(std::string(mask) + ": " + word);
      const Masked cells(*values, mask);
      std::vector<long> expected;
      for (long row = 0; row < cells.Rows(); ++row)
        if (lists::Folded(cells.Shown(row, 0)).find(word) != std::string::npos) expected.push_back(row);
      RowOrder order(cells);
      order.Search(word);
      EXPECT_EQ(Shown(order), expected);
    }
  const Masked cells(numbers, "###,###,##0.00");
  RowOrder(cells).Search("1");
  EXPECT_LT(cells.shown, 200) << "the numbers are made no texts";
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
