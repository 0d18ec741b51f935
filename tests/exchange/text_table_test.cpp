#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "exchange/table/table_reader.h"
#include "support/temporary_folder.h"

namespace exchange {
namespace {

/// A file in a folder of its own.
class TextTableTest : public testing::Test {
 protected:
  std::string Put(const std::string& content) {
    std::ofstream(file_, std::ios::binary) << content;
    return file_;
  }
  /// All rows, "line:field|field" each.
  std::string RowsOf(const std::string& content, const TableOptions& options = {}) {
    const auto table = OpenTable(Put(content), options);
    separator_ = *table->Facts().separator;
    encoding_ = NameOf(*table->Facts().encoding);
    std::string all;
    for (TableRow row; table->Next(row);) {
      all += std::to_string(row.line) + ":";
      for (const TableCell& cell : row.cells) all += cell.text + "|";
      all += " ";
    }
    return all;
  }

  const testing_support::TemporaryFolder folder_;
  std::string file_ = folder_.File("texto.tabela");
  char separator_ = 0;
  std::string encoding_;
};

/// ASCII as UTF-16.
std::string Utf16(const std::string& text, bool bigEndian) {
  std::string wide;
  for (char c : text) wide += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return wide;
}

TEST_F(TextTableTest, TellsSeparatorAndEncodingWhateverComesFirst) {
  const struct {
    std::string text;
    char separator;
    const char* encoding;
    const char* rows;
  } files[] = {{"Extracto, de Julho\n\nData;Valor\n01-07;1,50\n02-07;2,50\n", ';', "UTF-8",
                "1:Extracto, de Julho| 3:Data|Valor| 4:01-07|1,50| 5:02-07|2,50| "},
               {"a,b\n\"1;5\",2\n\"1;6\",3\n", ',', "UTF-8", "1:a|b| 2:1;5|2| 3:1;6|3| "},
               {"x^y\n;;\n1^2\n", '^', "UTF-8", "1:x|y| 2:;;| 3:1|2| "},
               {"\xEF\xBB\xBFP\xC3\xA3o\tb\n", '\t', "UTF-8", "1:P\xC3\xA3o|b| "},
               {"P\xE3o;\x80\n", ';', "Windows-1252", "1:P\xC3\xA3o|\xE2\x82\xAC| "},
               {"\xFF\xFE" + Utf16("a;b\r\n1;2\r\n", false), ';', "UTF-16 (LE)", "1:a|b| 2:1|2| "},
               {Utf16("a\tb\n\"1\n1\"\t2\n3\t4", true), '\t', "UTF-16 (BE)", "1:a|b| 2:1\n1|2| 4:3|4| "},
               {std::string("\xFE\xFF\xD8\x3D\xDE\x97\0;\xDC\x00", 10), ';', "UTF-16 (BE)",
                "1:\xF0\x9F\x9A\x97|\xEF\xBF\xBD| "},
               {"so\xCC\x81 uma coluna\n", ';', "UTF-8", "1:so\xCC\x81 uma coluna| "}};
  for (const auto& f : files) {
    SCOPED_TRACE(f.text);
    const std::string rows = RowsOf(f.text);
    EXPECT_EQ(separator_, f.separator);
    EXPECT_EQ(encoding_, f.encoding);
    EXPECT_EQ(rows, f.rows);
  }
  EXPECT_EQ(RowsOf("a b;c\n", {.separator = ' ', .encoding = TextEncoding::kWindows1252}), "1:a|b;c| ");
}

TEST_F(TextTableTest, ReadsACharacterAcrossTwoBlocks) {
  std::string text(65535, 'x');
  text += "\xC3\xA3;b\n";
  RowsOf(text);
  EXPECT_EQ(encoding_, "UTF-8");
  RowsOf(text + "\xC3");
  EXPECT_EQ(encoding_, "Windows-1252");
}

TEST_F(TextTableTest, RefusesWhatIsNoText) {
  const struct {
    std::string content;
    const char* says;
  } files[] = {{"a;b\n1;\"2\n3;4\n5;6\n", "linha 2"},
               {std::string("a;b\n\0\x01\x02", 7), "não é uma tabela"},
               {"\xFF\xFE" + Utf16("a;b\n1;2", false) + "x", "está incompleto"}};
  for (const auto& f : files) {
    try {
      RowsOf(f.content);
      ADD_FAILURE() << f.says;
    } catch (const std::runtime_error& e) {
      EXPECT_NE(std::string(e.what()).find(f.says), std::string::npos) << e.what();
    }
  }
}

}  // namespace
}  // namespace exchange
