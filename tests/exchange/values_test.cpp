// What companies really write: dates, numbers, words and plates.

#include <gtest/gtest.h>

#include "exchange/values/date_texts.h"
#include "exchange/values/fold.h"
#include "exchange/values/number_texts.h"
#include "exchange/values/plates.h"
#include "exchange/values/words.h"
#include "support/whole_text.h"

namespace exchange {
namespace {

constexpr auto kDay = DateOrder::kDayFirst;
constexpr auto kMonth = DateOrder::kMonthFirst;
constexpr auto kYear = DateOrder::kYearFirst;

TEST(DateTexts, AreReadAsTheyAreWritten) {
  const struct {
    const char* text;
    DateOrder order;
    const char* date;  // empty: none
  } cases[] = {{"05-03-2024", kDay, "05-03-2024"},
               {"05/03/2024", kMonth, "03-05-2024"},
               {"24.03.05", kYear, "05-03-2024"},
               {"2024-03-05T08:30:15.250Z", kMonth, "05-03-2024 08:30:15"},
               {"2024-03-05 08:30+01:00", kDay, "05-03-2024 08:30:00"},
               {" 5 de março de 2024 ", kDay, "05-03-2024"},
               {"Mar 5, 2024 2:07 PM", kMonth, "05-03-2024 14:07:00"},
               {"5-avr-24", kDay, "05-04-2024"},
               {"1 août 2024", kDay, "01-08-2024"},
               {"ter., 05 ene 2024 12:05 a.m.", kDay, "05-01-2024 00:05:00"},
               {"3/5/2024 12:05:09 pm", kMonth, "05-03-2024 12:05:09"},
               {"5/3/99 9h05", kDay, "05-03-1999 09:05:00"},
               {"20240305", kDay, "05-03-2024"},
               {"05032024", kDay, "05-03-2024"},
               {"20240305083015", kDay, "05-03-2024 08:30:15"},
               {"45356", kDay, "05-03-2024"},
               {"45356,5", kDay, "05-03-2024 12:00:00"},
               {"14:30", kDay, "14:30:00"},
               {"31-02-2024", kDay, ""},
               {"13/13/2024", kMonth, ""},
               {"2024", kDay, ""},
               {"5 de Fulano de 2024", kDay, ""},
               {"05-03-2024 25:00", kDay, ""},
               {"12345678901234567890", kDay, ""},
               {"", kDay, ""}};
  for (const auto& c : cases) {
    const auto date = ReadDateText(c.text, c.order);
    EXPECT_EQ(date ? date->ToText() : "", c.date) << c.text;
  }
  EXPECT_EQ(DayOfSerial(43894, true)->ToText(), "05-03-2024");
  EXPECT_EQ(DayOfSerial(1, false)->ToText(), "01-01-1900");
  EXPECT_FALSE(DayOfSerial(0.5, false));
  for (const char* time : {"8:30", "0830", "083000", "8h30", "8:30 am", "0.354166666666667"})
    EXPECT_EQ(ReadTimeText(time), 8 * 3600 + 30 * 60) << time;
  EXPECT_FALSE(ReadTimeText("2561"));
}

TEST(DateTexts, TellTheOrderOfTheFileOrAreAsked) {
  const struct {
    std::vector<const char*> texts;
    std::optional<DateOrder> found;
  } cases[] = {{{"05/03/2024", "13/03/2024"}, kDay},
               {{"05/03/2024", "03/13/2024"}, kMonth},
               {{"05/03/2024"}, std::nullopt},
               {{"13/03/2024", "03/13/2024"}, std::nullopt},
               {{"05/05/2024", "5 mar 2024", "2024-03-05", ""}, kDay}};
  for (const auto& c : cases) {
    DateOrders orders;
    for (const char* text : c.texts) orders.Look(text);
    EXPECT_EQ(orders.Found(), c.found) << c.texts[0];
  }
}

TEST(NumberTexts, AreReadWhateverGroupsAndSignsThem) {
  const struct {
    const char* text;
    NumberFace face;
    const char* number;  // empty: none
  } cases[] = {{"1.234,50", {}, "1234,5"},
               {"1,234.50", {.decimal = '.'}, "1234,5"},
               {"1 234,50 €", {}, "1234,5"},
               {"1\u202f234\u00a0567,5", {}, "1234567,5"},
               {"1'234.5", {.decimal = '.'}, "1234,5"},
               {"12,34,567.8", {.decimal = '.'}, "1234567,8"},
               {"1.234.567", {.decimal = '.'}, "1234567"},
               {"(12,5)", {}, "-12,5"},
               {"12,5-", {}, "-12,5"},
               {"\u221212,5", {}, "-12,5"},
               {"EUR 12,5", {}, "12,5"},
               {"-12,5", {.turned = true}, "12,5"},
               {"12,5 CR", {}, "-12,5"},
               {"40,5 Lts.", {}, "40,5"},
               {"4550", {.impliedDecimals = 2}, "45,5"},
               {"5", {.impliedDecimals = 2}, "0,05"},
               {",5", {}, "0,5"},
               {"0,00005", {}, "0"},
               {"0,00015", {}, "0,0002"},
               {"1.23", {}, ""},
               {"12-34", {}, ""},
               {"12 34", {}, ""},
               {"1.2.3", {.decimal = '.'}, ""},
               {"99999999999999999999", {}, ""},
               {"quarenta", {}, ""},
               {"-", {}, ""}};
  for (const auto& c : cases) {
    const auto number = ReadNumberText(c.text, c.face);
    EXPECT_EQ(number ? number->ToText() : "", c.number) << c.text;
  }
  DecimalMarks marks;
  marks.Look("45.123");
  EXPECT_EQ(marks.Found(), std::nullopt);
  EXPECT_EQ(marks.Doubt(), "45.123");
  marks.Look("1.5 €");
  EXPECT_EQ(marks.Found(), '.');
}

/// What a text is read as; its kind stands before it.
std::string ReadAs(const std::string& input) {
  const std::string kind = input.substr(0, input.find(' '));
  const std::string text = input.find(' ') == std::string::npos ? "" : input.substr(input.find(' ') + 1);
  const auto date = [&](DateOrder order) {
    const auto read = ReadDateText(text, order);
    return read ? read->ToText() : "-";
  };
  const auto number = [&](const NumberFace& face) {
    const auto read = ReadNumberText(text, face);
    return read ? read->ToText() : "-";
  };
  const auto word = [&](WordSet set) { return std::to_string(NumberOfWord(set, text).value_or(-1)); };
  if (kind == "data") return date(kDay) + " | " + date(kMonth) + " | " + date(kYear);
  if (kind == "número")
    return number({.decimal = ','}) + " | " + number({.decimal = '.'}) + " | " + BareNumber(text);
  if (kind == "trocado") return number({.turned = true}) + " | " + number({.impliedDecimals = 3});
  if (kind == "hora") return std::to_string(ReadTimeText(text).value_or(-1));
  if (kind == "matrícula")
    return WrittenPlate(text, true) + " | " + WrittenPlate(text, false) +
           (IsPortuguesePlate(text) ? " | sim" : "");
  if (kind == "palavra")
    return word(WordSet::kTruth) + " " + word(WordSet::kFuel) + " " + word(WordSet::kLicence) + " " +
           word(WordSet::kPayment);
  if (kind == "classes") {
    std::string all;
    for (const std::string& one : LicencesIn(text)) all += "«" + one + "»";
    return all;
  }
  return "«" + Folded(text) + "» «" + FoldedTight(text) + "» «" + Stripped(text) + "»";
}

TEST(Values, AreReadAsIsWrittenDown) {
  testing_support::ExpectCases(PARVEL_SOURCE_DIR "/tests/exchange/values.txt", ReadAs);
}

TEST(Words, StandForFixedValues) {
  const struct {
    WordSet set;
    const char* word;
    int number;  // -1: none
  } cases[] = {{WordSet::kTruth, "Sim", 1},      {WordSet::kTruth, "NÃO", 0},
               {WordSet::kTruth, "talvez", -1},  {WordSet::kFuel, "Gasóleo", 0},
               {WordSet::kFuel, "GPL", 2},       {WordSet::kFuel, "Elétrico", 3},
               {WordSet::kLicence, "c1 + e", 6}, {WordSet::kLicence, "CE", 7},
               {WordSet::kLicence, "Z", -1},     {WordSet::kPayment, "Semestral", 1}};
  for (const auto& c : cases) EXPECT_EQ(NumberOfWord(c.set, c.word).value_or(-1), c.number) << c.word;
  EXPECT_EQ(LicencesIn("B, C e C+E"), (std::vector<std::string>{"B", "C", "C+E"}));
}

TEST(Plates, ArePairsHoweverTheyAreParted) {
  EXPECT_EQ(WrittenPlate("12ab34", true), "12-AB-34");
  EXPECT_EQ(WrittenPlate("aa 00 bb", false), "AA00BB");
  EXPECT_EQ(WrittenPlate(" 1234-BCD ", true), "1234-BCD");
  EXPECT_FALSE(IsPortuguesePlate("ABCDEF"));
  EXPECT_EQ(Folded("  Nº  do CARTÃO: "), "no do cartao");
  EXPECT_EQ(EditDistance("renault", "renaut"), 1U);
}

}  // namespace
}  // namespace exchange
