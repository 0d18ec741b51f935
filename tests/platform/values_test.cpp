// What values convert to, and what texts are read as, held against a text.
#include <gtest/gtest.h>

#include <ctime>
#include <functional>
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

/// A value by its kind and its text: "real 1.5", "texto 12,5", "nulo".
Variant ValueOf(const std::string& input) {
  const std::string kind = input.substr(0, input.find(' '));
  const std::string text = input.size() > kind.size() ? input.substr(kind.size() + 1) : "";
  if (kind == "texto") return text;
  if (kind == "nulo") return Variant::Null{};
  if (kind == "sim" || kind == "não") return kind == "sim";
  if (kind == "16") return static_cast<std::int16_t>(std::stoi(text));
  if (kind == "32") return static_cast<std::int32_t>(std::stol(text));
  if (kind == "real") return std::stod(text);
  if (kind == "moeda") return Units(std::stoll(text));
  if (kind == "segundos") return Date::FromSeconds(std::stoll(text));
  if (kind == "bytes") return Bytes{1, 2};
  return {};
}

TEST(Values, AreConvertedAndFormattedAsWrittenDown) {
  testing_support::ExpectCases(PARVEL_SOURCE_DIR "/tests/platform/values.txt", [](const std::string& input) {
    const Variant value = ValueOf(input);
    const std::pair<const char*, std::function<std::string()>> acts[] = {
        {"", [&] { return value.ToText(); }},
        {"verdade", [&] { return std::string(value.ToBool() ? "sim" : "não"); }},
        {"16", [&] { return std::to_string(value.ToInteger()); }},
        {"32", [&] { return std::to_string(value.ToLong()); }},
        {"real", [&] { return std::to_string(value.ToDouble()); }},
        {"moeda", [&] { return value.ToCurrency().ToText('.'); }},
        {"data", [&] { return value.ToDate().ToText(); }},
        {"bytes", [&] { return std::to_string(value.ToBytes().size()); }}};
    std::string outcome;
    for (const auto& [name, act] : acts) outcome += name + Outcome(act) + " ";
    for (const char* mask : {"###,###.#0", "###,###.##0", "#,##0.00", "###,##0", "#,###,###",
                             "dd-mm-yyyy hh:mm", "yyyy.MM.dd hh:mm:ss", "mm-dd"})
      outcome += mask + Outcome([&] { return Format(value, mask); }) + " ";
    return outcome;
  });
}

TEST(Dates, AreReadAndMovedAsWrittenDown) {
  testing_support::ExpectCases(PARVEL_SOURCE_DIR "/tests/platform/dates.txt", [](const std::string& input) {
    return Outcome([&] {
      const Date date = Date::Parse(input);
      std::string text = date.ToText() + " dia " + date.DayOnly().ToText() + (date.IsZero() ? " zero" : "");
      text += " meses";
      for (const int months : {-25, -12, -1, 1, 6, 12, 48})
        text += " " + Outcome([&] { return date.AddMonths(months).ToText(); });
      for (const int days : {-60, 1, 366}) text += " " + Outcome([&] { return date.AddDays(days).ToText(); });
      return text + " dias " + std::to_string(DaysBetween(Date::FromParts(2024, 2, 29, 8, 5), date));
    });
  });
  const auto made = [](auto... parts) { return Outcome([=] { return Date::FromParts(parts...).ToText(); }); };
  EXPECT_EQ(made(2024, 257, 1) + made(2024, 1, 257) + made(2024, 13, 1) + made(2024, 0, 1) +
                made(2024, 1, 0) + made(2024, -255, 1) + made(2024, 1, 1, 24) + made(2024, 1, 1, 23, 60) +
                made(2024, 1, 1, 23, 59, 60) + made(2024, 1, 1, -1),
            "!13!13!13!13!13!13!13!13!13!13");
  EXPECT_EQ(made(2024, 12, 31, 23, 59, 59), "«31-12-2024 23:59:59»");
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
