#include "lists/condition.h"

#include <gtest/gtest.h>

#include <map>

#include "lists/cells.h"
#include "platform/runtime_error.h"
#include "support/whole_text.h"

namespace {

using lists::Condition;
using platform::Currency;
using platform::Date;
using platform::Variant;

class OneColumn : public lists::Cells {
 public:
  explicit OneColumn(std::vector<Variant> values) : values_(std::move(values)) {}
  long Rows() const override { return static_cast<long>(values_.size()); }
  std::size_t ColumnCount() const override { return 1; }
  bool IsSearched(std::size_t) const override { return true; }
  Variant Value(long row, std::size_t) const override { return values_[static_cast<std::size_t>(row)]; }
  std::string Shown(long row, std::size_t) const override {
    return Value(row, 0).IsNull() ? "" : Value(row, 0).ToText();
  }

 private:
  std::vector<Variant> values_;
};

const Date kToday = Date::FromParts(2026, 11, 25);  // a Wednesday

/// The rows that meet a condition, as "0 2"; "!" and the error's text when it can't be read.
std::string Met(const std::vector<Variant>& values, const std::string& text) {
  const OneColumn cells(values);
  lists::Column column(cells, 0);
  try {
    const std::vector<char> met = Condition(text, column.kind(), kToday).Met(column);
    std::string rows;
    for (std::size_t i = 0; i < met.size(); ++i)
      if (met[i] != 0) rows += (rows.empty() ? "" : " ") + std::to_string(i);
    return rows;
  } catch (const platform::RuntimeError& error) {
    return "!" + std::string(error.what());
  }
}

Date Day(int year, int month, int day, int hour = 0) { return Date::FromParts(year, month, day, hour); }

/// Each line of the text is what a user types over one of these columns, and the rows that meet it.
TEST(ConditionTest, ReadsWhatAUserTypes) {
  const std::vector<Variant> texts = {"Gasóleo aditivado", "GASOLINA", "Gás; a granel", ""};
  const std::vector<Variant> numbers = {Currency::Parse("12"), Currency::Parse("12,75"),
                                        Currency::Parse("13"), Currency::Parse("-1"), Variant::Null()};
  const std::vector<Variant> dates = {Day(2026, 11, 25, 23), Day(2026, 11, 23), Day(2026, 10, 31),
                                      Day(2025, 12, 31), Variant::Null()};
  const std::vector<Variant> days = {Day(1753, 1, 1),  Day(1754, 1, 1), Day(9998, 12, 31, 23),
                                     Day(2026, 1, 31), Day(2026, 2, 1), Day(2026, 12, 1),
                                     Day(2027, 1, 1)};
  const std::vector<Variant> amounts = {
      Currency::Parse("-13"),    Currency::Parse("-12,5"),   Currency::Parse("-12"),
      Currency::Parse("0,0001"), Currency::Parse("12,7499"), Currency::Parse("12,75"),
      Currency::Parse("12,76"),  Currency::Parse("12,8"),    Currency::Parse("1234,5")};
  const std::map<std::string, const std::vector<Variant>*> columns = {
      {"textos", &texts}, {"números", &numbers}, {"datas", &dates}, {"dias", &days}, {"quantias", &amounts}};
  testing_support::ExpectCases(PARVEL_SOURCE_DIR "/tests/lists/conditions.txt",
                               [&](const std::string& input) {
                                 const std::size_t end = input.find(": ");
                                 return Met(*columns.at(input.substr(0, end)), input.substr(end + 2));
                               });
}

TEST(ConditionTest, EachPeriodHoldsItsOwnDays) {
  // The first and the last day of each period, and those beside them.
  const std::vector<Variant> days = {
      Day(2024, 12, 31), Day(2025, 1, 1),   Day(2025, 12, 31), Day(2026, 1, 1),   Day(2026, 9, 30),
      Day(2026, 10, 1),  Day(2026, 10, 25), Day(2026, 10, 26), Day(2026, 10, 31), Day(2026, 11, 1),
      Day(2026, 11, 15), Day(2026, 11, 16), Day(2026, 11, 22), Day(2026, 11, 23), Day(2026, 11, 24, 23),
      Day(2026, 11, 25), Day(2026, 11, 26), Day(2026, 11, 29), Day(2026, 11, 30), Day(2026, 12, 25, 23),
      Day(2026, 12, 26), Day(2026, 12, 31), Day(2027, 1, 1)};
  std::string text;
  for (const std::string& period : lists::Periods()) text += period + ": " + Met(days, period) + "\n";
  EXPECT_EQ(text,
            "hoje: 15\nontem: 14\nesta semana: 13 14 15 16 17\nsemana passada: 11 12\n"
            "este mês: 9 10 11 12 13 14 15 16 17 18\nmês passado: 5 6 7 8\npróximo mês: 19 20 21\n"
            "este trimestre: 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21\n"
            "este ano: 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21\nano passado: 1 2\n"
            "últimos 30 dias: 7 8 9 10 11 12 13 14 15\npróximos 30 dias: 15 16 17 18 19\n");
}

TEST(ConditionTest, AChoiceIsWrittenSoThatItIsReadAgain) {
  const std::vector<std::string> texts = {"Gasóleo", "a; b", "disse \"sim\"", ""};
  EXPECT_EQ(lists::ChosenTexts(lists::ChoiceOf(texts)), texts);
  EXPECT_EQ(lists::ChoiceOf({"Gás"}), "= Gás");
  EXPECT_EQ(lists::ConditionInWords(lists::ChoiceOf(texts)), "Gasóleo; a; b; disse \"sim\"; (sem valor)");
  EXPECT_EQ(lists::ConditionInWords("> 10"), "> 10");
  EXPECT_EQ(lists::ChoiceOf({" a", "b", "c\"d"}), "= \" a\"; b; \"c\"\"d\"");
  const std::vector<std::string> read = {"a", "b c", "x\"y", " d ", ""};
  EXPECT_EQ(lists::ChosenTexts("=a;  b c ; x\"y; \" d \" e ;"), read);
  EXPECT_TRUE(lists::ChosenTexts("a; b").empty());
}

}  // namespace
