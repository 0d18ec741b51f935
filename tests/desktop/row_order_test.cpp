#include "desktop/list/row_order.h"

#include <gtest/gtest.h>

#include <tuple>

namespace desktop_test {
namespace {

using desktop::RowOrder;
using desktop::SortDirection;
using platform::Date;
using platform::Variant;

/// One column of values, which counts how often they are read.
class Values : public desktop::TableSource {
 public:
  explicit Values(std::vector<Variant> values) : values_(std::move(values)) {
    columns_.push_back({"valor", "Valor"});
  }

  long Rows() const override { return static_cast<long>(values_.size()); }
  QString Text(long row, std::size_t column) const override {
    const Variant value = Value(row, column);
    return value.IsNull() ? QString() : QString::fromStdString(value.ToText());
  }
  Variant Value(long row, std::size_t) const override {
    ++reads;
    return values_[static_cast<std::size_t>(row)];
  }
  void Refresh() override {}

  mutable int reads = 0;

 private:
  std::vector<Variant> values_;
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
      {"a text among dates", {"02-01-2024", "sem data", "01-12-2024"}, {2, 0, 1}},
  };
  for (const auto& [what, column, ascending] : cases) {
    SCOPED_TRACE(what);
    const Values values(column);
    RowOrder order(values);
    order.Sort(desktop::SortBy{0, SortDirection::kAscending});
    EXPECT_EQ(Shown(order), ascending);
    order.Sort(desktop::SortBy{0, SortDirection::kDescending});
    EXPECT_EQ(order.RowAt(order.Count() - 1), ascending.front());
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
    order.Search(QString::fromUtf8(text));
    EXPECT_EQ(Shown(order), found);
  }
}

TEST(RowOrderTest, NarrowingAndWideningASearchKeepsTheSort) {
  const Values values({"beta", "alfa", "gama", "alga"});
  RowOrder order(values);
  order.Sort(desktop::SortBy{0, SortDirection::kDescending});
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

}  // namespace
}  // namespace desktop_test
