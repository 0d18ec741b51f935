#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "platform/currency.h"
#include "platform/date.h"
#include "platform/format.h"
#include "platform/regional.h"
#include "platform/text.h"
#include "platform/variant.h"
#include "support/errors.h"

namespace platform {
namespace {

using testing_support::NumberOf;

Currency Units(std::int64_t tenThousandths) { return Currency::FromTenThousandths(tenThousandths); }

TEST(Currency, ReadsTextOfTheRegionAndShowsItsShortestForm) {
  const std::pair<const char*, std::int64_t> cases[] = {
      {"1,659", 16590}, {"  60,5 ", 605000}, {"1.234,5", 12345000}, {"-0,0001", -1}, {"0,00005", 0},
      {"0,00015", 2},   {"0,000050001", 1},  {"1.2.3", 1230000},    {"+7", 70000},   {",5", 5000}};
  for (const auto& [text, units] : cases) EXPECT_EQ(Currency::Parse(text).tenThousandths(), units) << text;
  for (const char* text : {"60,5", "0", "-0,0001", "922337203685477,5807", "-922337203685477,5807"})
    EXPECT_EQ(Currency::Parse(text).ToText(), text);
  EXPECT_EQ(Units(INT64_MIN).ToText('.'), "-922337203685477.5808");
  for (const char* text : {"", " ", "abc", "1,2,3", "12a", "-", ",", "1 2", ".5"})
    EXPECT_EQ(NumberOf([&] { Currency::Parse(text); }), kTypeMismatch) << text;
  for (const std::string& text : {std::string("922337203685477,5808"), std::string("-922337203685477,5808"),
                                  std::string("-922337203685477,58075"), std::string(60, '9')})
    EXPECT_EQ(NumberOf([&] { Currency::Parse(text); }), kOverflow) << text;
}

TEST(Currency, RoundsHalfToEvenAndRefusesWhatDoesNotFit) {
  EXPECT_EQ(Units(405000) * Units(16590), Units(671895));  // 40,5 at 1,659
  EXPECT_EQ(Units(1) * Units(5000), Units(0));             // 0,00005
  EXPECT_EQ(Units(3) * Units(5000), Units(2));             // 0,00015
  EXPECT_EQ(Units(-3) * Units(5000), Units(-2));
  EXPECT_EQ(Currency::FromDouble(2.00005), Units(20000));
  EXPECT_EQ(Units(25000).ToWhole(), 2);
  EXPECT_EQ(Units(35000).ToWhole(), 4);
  const std::function<void()> overflows[] = {[] { (void)(Units(INT64_MAX) + Units(1)); },
                                             [] { (void)-Units(INT64_MIN); },
                                             [] { (void)(Units(INT64_MAX) * Units(10001)); },
                                             [] { Currency::FromDouble(1e15); },
                                             [] { Currency::FromDouble(-922337203685477.5808); },
                                             [] { (void)(Units(INT64_MIN / 2) * Units(20000)); },
                                             [] { (void)(Units(-INT64_MAX) - Units(1)); },
                                             [] { Divide(0, 0); }};
  for (const auto& act : overflows) EXPECT_EQ(NumberOf(act), kOverflow) << &act - overflows;
  EXPECT_EQ(NumberOf([] { Divide(1, 0); }), kDivisionByZero);
}

TEST(Date, ReadsTheTextsOfScreensAndStatements) {
  const Date day = Date::FromParts(2024, 2, 29);
  for (const char* text : {"29-02-2024", "29/2/2024", "29.02.24", "2024-02-29", "2024.02.29", " 29-02-2024 "})
    EXPECT_EQ(Date::Parse(text), day) << text;
  EXPECT_EQ(Date::Parse("01-01-29").year(), 2029);
  EXPECT_EQ(Date::Parse("01-01-30").year(), 1930);
  EXPECT_EQ(Date::Parse("29-02-2024 7:05"), Date::FromParts(2024, 2, 29, 7, 5));
  EXPECT_TRUE(Date::Parse("00:00:00").IsZero());
  EXPECT_TRUE(Date::Parse("30-12-1899").IsZero());
  EXPECT_EQ(Date::Parse("13:45").ToText(), "13:45:00");
  for (const char* text : {"31-04-2024",  "29-02-2023",   "1-13-2024",  "",
                           "hoje",        "1-2",          "1-2/2024",   "24:00",
                           "1:60",        "29-02-2024 x", "12345-1-1",  "1-1-2024-5",
                           "257-01-2024", "01-257-2030",  "1-268-2024", "2024-257-01",
                           "2024-01-257", "0-1-2024",     "1-0-2024",   "29-02-2024 256:00",
                           "1:2:60"})
    EXPECT_EQ(NumberOf([&] { Date::Parse(text); }), kTypeMismatch) << text;
  for (const auto& [month, ofMonth] : {std::pair(257, 1), {1, 257}, {13, 1}, {0, 1}, {1, 0}, {-255, 1}})
    EXPECT_EQ(NumberOf([m = month, d = ofMonth] { Date::FromParts(2024, m, d); }), kTypeMismatch)
        << month << '-' << ofMonth;
  EXPECT_EQ(NumberOf([] { Date::FromParts(2024, 1, 1, 24); }), kTypeMismatch);
}

TEST(Date, ShowsMidnightWithoutTimeAndZeroAsTime) {
  EXPECT_EQ(Date::FromParts(2024, 3, 1).ToText(), "01-03-2024");
  EXPECT_EQ(Date::FromParts(2024, 3, 1, 9, 5).ToText(), "01-03-2024 09:05:00");
  EXPECT_EQ(Date().ToText(), "00:00:00");
  EXPECT_TRUE(EqualsText(Date(), "00:00:00") && EqualsText(Date(), "30-12-1899"));
  EXPECT_FALSE(EqualsText(Date::FromSeconds(60), "00:00:00"));
  EXPECT_EQ(Date::FromParts(1899, 12, 29, 18, 0).hour(), 18);
}

TEST(Date, CountsMidnightsAndClipsMonths) {
  EXPECT_EQ(DaysBetween(Date::FromParts(2024, 3, 1, 23, 59), Date::FromParts(2024, 3, 2)), 1);
  EXPECT_EQ(DaysBetween(Date::FromParts(2024, 3, 2), Date::FromParts(2024, 3, 1, 23, 59)), -1);
  EXPECT_EQ(Date::FromParts(2024, 3, 31).AddMonths(6), Date::FromParts(2024, 9, 30));
  EXPECT_EQ(Date::FromParts(2024, 2, 29).AddMonths(12), Date::FromParts(2025, 2, 28));
  EXPECT_EQ(Date::FromParts(2024, 1, 15, 8, 0).AddMonths(-2), Date::FromParts(2023, 11, 15, 8, 0));
}

TEST(Format, FollowsTheMasksAndTheRegion) {
  struct Case {
    Variant value;
    const char* mask;
    const char* text;
  };
  const Case numbers[] = {{"60,5", "###,###.#0", "60,50"},
                          {"1234,5", "###,###.#0", "1.234,50"},
                          {Units(16590), "###,###.##0", "1,659"},
                          {0.125, "#,##0.00", "0,13"},
                          {Units(-1250), "#,##0.00", "-0,13"},
                          {Units(-40), "#,##0.00", "0,00"},
                          {1234567, "#,###,##0", "1.234.567"},
                          {0, "#,###,###", ""},
                          {0, "###,##0", "0"},
                          {Units(9999996), "###,###.#0", "1.000,00"},
                          {"", "###,##0", ""},
                          {"doze", "###,##0", "doze"}};
  for (const Case& c : numbers) EXPECT_EQ(Format(c.value, c.mask), c.text);
  const Date date = Date::FromParts(2024, 3, 1, 14, 7, 9);
  const Case dates[] = {{date, "dd-mm-yyyy hh:mm", "01-03-2024 14:07"},
                        {date, "yyyy.mm.dd hh:mm:ss", "2024.03.01 14:07:09"},
                        {date, "yyyy-MM-dd", "2024-03-01"},
                        {"1-3-24", "mm-dd", "03-01"},
                        {"amanhã", "dd-mm-yyyy", "amanhã"}};
  for (const Case& c : dates) EXPECT_EQ(Format(c.value, c.mask), c.text);
  Regional english;
  english.decimal = '.';
  english.grouping = ',';
  Regional::Install(english);
  EXPECT_EQ(Format(Currency::Parse("1,234.5"), "###,###.#0"), "1,234.50");
  Regional::Install({});
}

TEST(Variant, ConvertsOrSaysWhyNot) {
  EXPECT_EQ(Variant("12,5").ToInteger(), 12);
  EXPECT_EQ(Variant(true).ToLong(), -1);
  EXPECT_EQ(Variant(13.5).ToLong(), 14);
  EXPECT_EQ(Variant("0,50004").ToLong(), 1) << "rounded once";
  EXPECT_EQ(Variant("-2,49999").ToLong(), -2);
  EXPECT_EQ(Variant("2,5").ToLong(), 2);
  EXPECT_EQ(Variant().ToText(), "");
  EXPECT_EQ(Variant(1.5).ToText(), "1,5");
  EXPECT_EQ(Variant("29-02-2024").ToDate(), Date::FromParts(2024, 2, 29));
  const Variant null = Variant::Null{};
  EXPECT_EQ(NumberOf([&] { null.ToText(); }), kInvalidUseOfNull);
  EXPECT_EQ(NumberOf([&] { null.ToCurrency(); }), kInvalidUseOfNull);
  EXPECT_EQ(NumberOf([&] { null.ToDate(); }), kInvalidUseOfNull);
  EXPECT_EQ(NumberOf([] { Variant("x").ToLong(); }), kTypeMismatch);
  EXPECT_EQ(NumberOf([] { Variant(40000).ToInteger(); }), kOverflow);
  EXPECT_EQ(NumberOf([] { Variant(1e10).ToDate(); }), kOverflow) << "no year has five digits";
  EXPECT_EQ(NumberOf([] { Variant("3000000000").ToLong(); }), kOverflow);
}

TEST(Text, CutsByUtf16UnitsAndNeverInsideACharacter) {
  EXPECT_EQ(Length("Designação"), 10U);
  EXPECT_EQ(Left("Designação", 8), "Designaç");
  EXPECT_EQ(Right("não", 2), "ão");
  EXPECT_EQ(Left("a😀b", 2), "a");
  EXPECT_EQ(Left("a😀b", 3), "a😀");
  EXPECT_EQ(Trim("  a b "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_TRUE(IsUtf8("açúcar 😀"));
  EXPECT_FALSE(IsUtf8("a\xE7ucar"));
  EXPECT_FALSE(IsUtf8("\xC0\x80"));
  EXPECT_FALSE(IsUtf8("\xED\xA0\x80"));
}

}  // namespace
}  // namespace platform
