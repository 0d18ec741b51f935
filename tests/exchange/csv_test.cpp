#include <gtest/gtest.h>

#include <sstream>

#include "exchange/csv_number.h"
#include "exchange/csv_reader.h"

namespace exchange {
namespace {

TEST(Csv, TellsSeparatorAndEncoding) {
  const struct {
    const char* text;
    char separator;
    bool utf8;
  } files[] = {{"a;b\n1,5;2\n", ';', true},
               {"a,b\n\"1.5\",2\n", ',', true},
               {"a\tb\n1.234\t5\n", '\t', true},
               {"a|b\n1.234,56|5\n", '|', true},
               {"a,b,c\td\n", ',', true},
               {"\xEF\xBB\xBF"
                "a;b\ncaf\xC3\xA9;1\n",
                ';', true},
               {"a;b\ncaf\xE9;1.25\n1;2\n", ';', false}};
  for (const auto& f : files) {
    SCOPED_TRACE(f.text);
    std::istringstream file(f.text);
    const CsvShape shape = DetectCsv(file);
    EXPECT_EQ(shape.separator, f.separator);
    EXPECT_EQ(shape.utf8, f.utf8);
    EXPECT_EQ(shape.header[0], "a");
  }
}

TEST(Csv, ReadsQuotesBreaksAndOldEncodings) {
  std::istringstream file("a;b\r\n\"x;\"\"y\"\"\nz\";\x80 \xE7\x9F\x81\r\n\r\n ;\n1");
  const CsvShape shape = DetectCsv(file);
  CsvReader reader(file, shape);
  for (int time = 0; time < 2; ++time) {
    std::vector<std::string> row;
    ASSERT_TRUE(reader.Next(row));
    EXPECT_EQ(reader.lastLine(), 1);
    ASSERT_TRUE(reader.Next(row));
    EXPECT_EQ(row, (std::vector<std::string>{"x;\"y\"\nz", "€ çŸ\xEF\xBF\xBD"}));
    EXPECT_EQ(reader.line(), 2);
    EXPECT_EQ(reader.lastLine(), 3);
    ASSERT_TRUE(reader.Next(row));
    EXPECT_EQ(reader.line(), 5);
    ASSERT_TRUE(reader.Next(row));
    EXPECT_EQ(row, std::vector<std::string>{"1"});
    EXPECT_FALSE(reader.Next(row));
    reader.Rewind();
  }
}

TEST(Csv, EveryByteOfTheOldEncodingIsOneCharacter) {
  std::string bytes;
  for (int byte = 0x80; byte <= 0xFF; ++byte) bytes += static_cast<char>(byte);
  std::istringstream file("a;b\n" + bytes + ";1\n");
  const CsvShape shape = DetectCsv(file);
  CsvReader reader(file, shape);
  std::vector<std::string> row;
  reader.Next(row);
  ASSERT_TRUE(reader.Next(row));
  EXPECT_EQ(row[0],
            "€�‚ƒ„…†‡ˆ‰Š‹Œ�Ž��‘’“”•–—˜™š›œ�žŸ\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕ"
            "Ö×ØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ");
}

TEST(Csv, NumbersAreReadOnlyWhenTheyAreWhole) {
  const struct {
    const char* text;
    char decimal;
    const char* number;
  } good[] = {{"1.234,5", ',', "1234,5"},     {"1,234.5", '.', "1234,5"}, {" -12 ", ',', "-12"},
              {"+1.234.567", ',', "1234567"}, {",5", ',', "0,5"},         {"5,", ',', "5"}};
  for (const auto& c : good) {
    const auto number = NumberOf(c.text, c.decimal);
    EXPECT_TRUE(number && number->ToText() == c.number) << c.text;
  }
  for (const char* bad : {"1.5", "12.34,5", "1.2345", "abc", "", "1,2,3", "1-2", "--1", "+-1", "1,2x", ".123",
                          "1.234.5", "1234.567", "1.2345.678", "0.123", "-", "9999999999999999"})
    EXPECT_FALSE(NumberOf(bad, ',')) << bad;
  EXPECT_TRUE(NumberOf("1.234,0", ',', true));
  EXPECT_FALSE(NumberOf("1,5", ',', true));
}

}  // namespace
}  // namespace exchange
