#include <gtest/gtest.h>

#include "lists/row_order.h"
#include "lists/values.h"
#include "lists/words.h"
#include "platform/format.h"

namespace {

using lists::RowOrder;
using lists_tests::Shown;
using lists_tests::Values;
using platform::Date;
using platform::Variant;

TEST(SearchTest, SearchesWithoutRegardToCaseAccentsHyphensAndBlanks) {
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

TEST(SearchTest, DigitsAreFoundInNumbersAndDatesAsTheyAreShown) {
  std::vector<Variant> numbers;
  std::vector<Variant> dates;
  for (int i = 0; i < 5000; ++i) {
    // What differs between ways to show them stands in few rows only.
    const bool odd = i % 1000 == 999;
    numbers.emplace_back(odd ? platform::Currency::FromTenThousandths(-12'345'656 - i)
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
  for (int i = 0; i < 5000; ++i) {
    numbers[static_cast<std::size_t>(i)] = platform::Currency::FromTenThousandths(100LL * i);
    dates[static_cast<std::size_t>(i)] = Date::FromParts(2001, 1, 1).AddDays(i);
  }
  for (const auto& [values, mask] : {std::pair{&numbers, "###,###,##0.00"}, {&dates, "dd-mm-yyyy"}}) {
    const Masked cells(*values, mask);
    RowOrder(cells).Search("1");
    EXPECT_LT(cells.shown, 200) << "they are made no texts";
  }
}

}  // namespace
