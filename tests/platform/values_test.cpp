// What values convert to, and what texts are read as, held against a text.
#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <sstream>
#include <utility>

#include "platform/currency.h"
#include "platform/date.h"
#include "platform/format.h"
#include "platform/regional.h"
#include "platform/text.h"
#include "platform/variant.h"
#include "support/errors.h"
#include "support/whole_text.h"

namespace platform {
namespace {

using testing_support::NumberOf;

Currency Units(std::int64_t tenThousandths) { return Currency::FromTenThousandths(tenThousandths); }

/// What an act gives, or the number of its error.
std::string Outcome(const std::function<std::string()>& act) {
  std::string outcome;
  const int error = NumberOf([&] { outcome = act(); });
  return error == 0 ? "«" + outcome + "»" : "!" + std::to_string(error);
}

TEST(Values, AreConvertedAndFormattedAsWrittenDown) {
  std::vector<Variant> values = {Variant(),
                                 Variant::Null{},
                                 true,
                                 false,
                                 std::int16_t{-7},
                                 40000,
                                 INT32_MIN,
                                 2147483647,
                                 0.0,
                                 1.5,
                                 -2.5,
                                 13.5,
                                 0.125,
                                 1e10,
                                 1e15,
                                 1e300,
                                 2.00005,
                                 Units(0),
                                 Units(16590),
                                 Units(25000),
                                 Units(35000),
                                 Units(-1250),
                                 Units(-40),
                                 Units(9999996),
                                 Units(INT64_MAX),
                                 Units(INT64_MIN),
                                 Units(327675000),
                                 Date(),
                                 Date::FromSeconds(60),
                                 Date::FromParts(2024, 3, 1),
                                 Date::FromParts(2024, 3, 1, 14, 7, 9),
                                 Date::FromParts(1899, 12, 29, 18, 0),
                                 Bytes{1, 2}};
  for (const char* text : {"",
                           " ",
                           "0",
                           "7",
                           "12,5",
                           "  60,5 ",
                           "1.234,5",
                           "1234567,891",
                           "-0,0001",
                           "0,00005",
                           "0,00015",
                           "0,000050001",
                           "0,50004",
                           "-2,49999",
                           "2,5",
                           "3,5",
                           "+7",
                           ",5",
                           "5,",
                           "1.2.3",
                           "1,2,3",
                           "12a",
                           "-",
                           ",",
                           "1 2",
                           ".5",
                           "--1",
                           "32767",
                           "32768",
                           "-32769",
                           "2147483648",
                           "3000000000",
                           "922337203685477,5807",
                           "922337203685477,5808",
                           "-922337203685477,5808",
                           "-922337203685477,58075",
                           "999999999999999999999999999999",
                           "doze",
                           "True"})
    values.emplace_back(text);
  std::ostringstream text;
  for (const Variant& value : values) {
    text << Outcome([&] { return value.ToText(); });
    const std::pair<const char*, std::function<std::string()>> acts[] = {
        {"verdade", [&] { return std::string(value.ToBool() ? "sim" : "não"); }},
        {"16", [&] { return std::to_string(value.ToInteger()); }},
        {"32", [&] { return std::to_string(value.ToLong()); }},
        {"real", [&] { return std::to_string(value.ToDouble()); }},
        {"moeda", [&] { return value.ToCurrency().ToText('.'); }},
        {"data", [&] { return value.ToDate().ToText(); }},
        {"bytes", [&] { return std::to_string(value.ToBytes().size()); }}};
    for (const auto& [name, act] : acts) text << " " << name << Outcome(act);
    for (const char* mask : {"###,###.#0", "###,###.##0", "#,##0.00", "###,##0", "#,###,###",
                             "dd-mm-yyyy hh:mm", "yyyy.MM.dd hh:mm:ss", "mm-dd"})
      text << " " << mask << Outcome([&] { return Format(value, mask); });
    text << "\n";
  }
  testing_support::ExpectWholeText(PARVEL_SOURCE_DIR "/tests/platform/values.txt", text.str());
}

TEST(Dates, AreReadAsWrittenDown) {
  std::ostringstream text;
  for (const char* read : {"29-02-2024",
                           "29/2/2024",
                           "29.02.24",
                           "2024-02-29",
                           "2024.02.29",
                           "2024/02/29",
                           " 29-02-2024 ",
                           "01-01-29",
                           "01-01-30",
                           "1-1-0",
                           "1-1-99",
                           "1-1-100",
                           "1-1-999",
                           "29-02-2024 7:05",
                           "29-02-2024 07:05:09",
                           "00:00:00",
                           "30-12-1899",
                           "13:45",
                           "13:45:59",
                           "23:59:59",
                           "31-04-2024",
                           "30-04-2024",
                           "29-02-2023",
                           "29-02-1900",
                           "29-02-2000",
                           "31-06-2024",
                           "31-09-2024",
                           "31-11-2024",
                           "31-12-2024",
                           "32-12-2024",
                           "1-13-2024",
                           "1-12-2024",
                           "hoje",
                           "1-2",
                           "1-2/2024",
                           "24:00",
                           "1:60",
                           "1:2:60",
                           "29-02-2024 x",
                           "12345-1-1",
                           "9999-12-31",
                           "1-1-2024-5",
                           "257-01-2024",
                           "01-257-2030",
                           "1-268-2024",
                           "2024-257-01",
                           "2024-01-257",
                           "0-1-2024",
                           "1-0-2024",
                           "29-02-2024 256:00",
                           "1-1-10000",
                           "1-1-9999",
                           "1-1-1",
                           "2024-1-1 1",
                           "2024-1-1 1:",
                           "2024-1-1  1:02"})
    text << read << " = " << Outcome([&] { return Date::Parse(read).ToText(); }) << "\n";
  const Date leap = Date::FromParts(2024, 2, 29, 8, 5);
  for (const Date& date :
       {leap, Date::FromParts(2024, 1, 31), Date::FromParts(1899, 12, 29, 23, 59, 59), Date()}) {
    text << date.ToText() << ":";
    for (const int months : {-25, -12, -2, -1, 0, 1, 6, 11, 12, 48})
      text << " " << date.AddMonths(months).ToText();
    for (const int days : {-60, -1, 1, 366}) text << " " << date.AddDays(days).ToText();
    text << " dias " << DaysBetween(leap, date) << " " << date.DayOnly().ToText()
         << (date.IsZero() ? " zero" : "") << "\n";
  }
  for (const auto& [month, day] :
       {std::pair(257, 1), {1, 257}, {13, 1}, {0, 1}, {1, 0}, {-255, 1}, {12, 31}, {6, 31}})
    text << month << "/" << day
         << Outcome([m = month, d = day] { return Date::FromParts(2024, m, d).ToText(); }) << "\n";
  for (const auto& [hour, minute, second] :
       {std::tuple(24, 0, 0), {23, 60, 0}, {23, 59, 60}, {-1, 0, 0}, {23, 59, 59}})
    text << hour << ":" << minute << ":" << second << Outcome([h = hour, m = minute, s = second] {
      return Date::FromParts(2024, 1, 1, h, m, s).ToText();
    }) << "\n";
  testing_support::ExpectWholeText(PARVEL_SOURCE_DIR "/tests/platform/dates.txt", text.str());
  EXPECT_TRUE(EqualsText(Date(), "00:00:00") && EqualsText(Date(), "30-12-1899"));
  EXPECT_FALSE(EqualsText(Date::FromSeconds(60), "00:00:00"));
  const auto clock = [] {
    const std::time_t now = std::time(nullptr);
    char shown[20];
    std::strftime(shown, sizeof shown, "%d-%m-%Y %H:%M:%S", std::localtime(&now));
    return std::string(shown);
  };
  const std::string before = clock();
  const std::string now = FormatDate(SystemTime(), "dd-mm-yyyy hh:mm:ss");
  EXPECT_TRUE(before <= now && now <= clock()) << now;
}

TEST(Currency, RoundsHalfToEvenAndRefusesWhatDoesNotFit) {
  EXPECT_EQ(Units(405000) * Units(16590), Units(671895));  // 40,5 at 1,659
  EXPECT_EQ(Units(1) * Units(5000), Units(0));             // 0,00005
  EXPECT_EQ(Units(3) * Units(5000), Units(2));             // 0,00015
  EXPECT_EQ(Units(-3) * Units(5000), Units(-2));
  const std::function<void()> overflows[] = {[] { (void)(Units(INT64_MAX) + Units(1)); },
                                             [] { (void)-Units(INT64_MIN); },
                                             [] { (void)(Units(INT64_MAX) * Units(10001)); },
                                             [] { Currency::FromDouble(-922337203685477.5808); },
                                             [] { (void)(Units(INT64_MIN / 2) * Units(20000)); },
                                             [] { (void)(Units(-INT64_MAX) - Units(1)); },
                                             [] { Divide(0, 0); }};
  for (const auto& act : overflows) EXPECT_EQ(NumberOf(act), kOverflow) << &act - overflows;
  EXPECT_EQ(NumberOf([] { Divide(1, 0); }), kDivisionByZero);
  Regional english;
  english.decimal = '.';
  english.grouping = ',';
  Regional::Install(english);
  EXPECT_EQ(Format(Currency::Parse("1,234.5"), "###,###.#0"), "1,234.50");
  Regional::Install({});
}

TEST(Text, CutsByUtf16UnitsAndNeverInsideACharacter) {
  EXPECT_EQ(Length("Designação"), 10U);
  EXPECT_EQ(Left("Designação", 8), "Designaç");
  EXPECT_EQ(Right("não", 2), "ão");
  EXPECT_EQ(Left("a😀b", 2), "a");
  EXPECT_EQ(Left("a😀b", 3), "a😀");
  EXPECT_EQ(Trim("  a b "), "a b");
  EXPECT_EQ(Trim("   "), "");
  for (const char* text : {"açúcar 😀", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xEF\xBF\xBD",
                           "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
    EXPECT_TRUE(IsUtf8(text)) << text;
  for (const char* text :
       {"a\xE7ucar", "\xC0\x80", "\xC1\xBF", "\xED\xA0\x80", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF",
        "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xC2", "\xE2\x82", "\xF0\x9F\x98", "\x80", "\xC2\xC2"})
    EXPECT_FALSE(IsUtf8(text)) << text;
}

}  // namespace
}  // namespace platform
