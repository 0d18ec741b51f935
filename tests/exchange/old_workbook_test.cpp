// Old workbooks put together record by record, in the shapes that other programs leave.

#include <gtest/gtest.h>

#include <string>

#include "exchange/table/xls_workbook.h"
#include "exchange/table_files.h"

namespace exchange {
namespace {

using namespace std::string_literals;

std::string Number(std::uint64_t number, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i) & 0xFF);
  return text;
}

std::string Record(std::uint32_t type, const std::string& data = "") {
  return Number(type, 2) + Number(static_cast<std::uint32_t>(data.size()), 2) + data;
}

/// A container whose one stream is so short that it lies in parts of 64 bytes, the last one first, and whose
/// table of sectors is named in a sector of its own.
std::string Container(const std::string& stream) {
  constexpr std::uint32_t kEnd = 0xFFFFFFFE;
  const auto parts = static_cast<std::uint32_t>(stream.size() / 64 + 1);
  const std::uint32_t sectors = (parts + 7) / 8;
  std::string header = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"s + std::string(22, '\0') + Number(9, 2);
  header.resize(48);
  header += Number(1, 4) + Number(0, 4) + Number(4096, 4) + Number(2, 4) + Number(1, 4) + Number(3, 4);
  header.resize(512, '\xFF');
  std::string table = Number(kEnd, 4) + Number(kEnd, 4) + Number(kEnd, 4) + Number(kEnd, 4);
  for (std::uint32_t i = 0; i < sectors; ++i) table += Number(i + 1 == sectors ? kEnd : 5 + i, 4);
  table.resize(512, '\xFF');
  const auto entry = [](const std::string& name, std::uint32_t first, std::size_t size) {
    std::string text;
    for (const char c : name) text += std::string{c, '\0'};
    text.resize(64);
    text += Number(2 * name.size() + 2, 2);
    text.resize(116);
    return text + Number(first, 4) + Number(static_cast<std::uint32_t>(size), 4) + Number(0, 4);
  };
  std::string directory = entry("Root Entry", 4, std::size_t{parts} * 64);
  directory += entry("Workbook", parts - 1, stream.size());
  directory.resize(512);
  std::string smallTable;
  std::string small;
  for (std::uint32_t i = 0; i < parts; ++i) {
    smallTable += Number(i == 0 ? kEnd : i - 1, 4);
    std::string part = stream.substr(std::size_t{parts - 1 - i} * 64, 64);
    part.resize(64);
    small += part;
  }
  smallTable.resize(512, '\xFF');
  small.resize(std::size_t{sectors} * 512);
  std::string tables = Number(0, 4) + std::string(504, '\xFF') + Number(kEnd, 4);
  return header + table + directory + smallTable + tables + small;
}

/// A workbook of one sheet; a text after its length is as its version writes it.
std::string Book(std::uint32_t version, const std::string& globals, const std::string& name,
                 const std::string& cells) {
  const std::string begin = Record(kXlsBegin, Number(version, 2) + Number(5, 2));
  const auto place = static_cast<std::uint32_t>(begin.size() + globals.size() + 4 + 6 + name.size() + 4);
  return begin + globals + Record(kXlsSheet, Number(place, 4) + Number(0, 2) + name) + Record(kXlsEnd) +
         Record(kXlsBegin, Number(version, 2) + Number(0x10, 2)) + cells + Record(kXlsEnd);
}

std::string Cell(std::uint32_t type, std::uint32_t row, std::uint32_t column, const std::string& value,
                 std::uint32_t style = 0) {
  return Record(type, Number(row, 2) + Number(column, 2) + Number(style, 2) + value);
}

constexpr std::uint32_t kNew = 0x600;
constexpr std::uint32_t kOld = 0x500;

TEST(OldWorkbook, NumbersTextsAndErrorsStandInMoreThanOneShape) {
  const TableFiles files;
  std::string errors;
  std::uint32_t column = 0;
  for (const std::uint32_t code : {0x00U, 0x07U, 0x0FU, 0x17U, 0x1DU, 0x24U, 0x2AU})
    errors += Cell(kXlsTruthOrError, 3, column++, Number(code, 1) + Number(1, 1));
  const std::string globals =
      Record(kXlsStyle, Number(0, 4)) + Record(kXlsStyle, Number(0, 2) + Number(14, 2));
  const std::string cells =
      Cell(kXlsLabel, 0, 1, Number(2, 2) + "\1\xAC\x20\x41\0"s) +
      Cell(kXlsRichLabel, 0, 0, Number(1, 2) + "\0a+++"s) + Cell(kXlsLabel, 0, 1, Number(1, 2) + "\0z"s) +
      // Several numbers in one record: 7, 0.25, -1.5 in hundredths, a day.
      Record(kXlsNumbers, Number(1, 2) + Number(2, 2) + Number(0, 2) + Number(7 << 2 | 2, 4) + Number(0, 2) +
                              Number(0x3FD00000, 4) + Number(0, 2) +
                              Number(static_cast<std::uint32_t>(-150) << 2 | 3, 4) + Number(1, 2) +
                              Number(46204U << 2 | 2, 4) + Number(5, 2)) +
      Cell(kXlsShortNumber, 2, 0, Number(0x40590001, 4)) +
      Cell(kXlsTruthOrError, 2, 1, Number(0, 1) + Number(0, 1)) +
      // A chart lies within the sheet.
      Record(kXlsBegin, Number(kNew, 4)) + Cell(kXlsShortNumber, 2, 2, Number(2, 4)) + Record(kXlsEnd) +
      errors +
      // A formula's text stands behind it, and behind no other cell.
      Cell(kXlsFormula, 4, 0, Number(0, 6) + "\xFF\xFF"s) + Record(kXlsResultText, Number(1, 2) + "\0t"s) +
      Cell(kXlsFormula, 4, 1, Number(3, 6) + "\xFF\xFF"s) + Record(kXlsResultText, Number(1, 2) + "\0u"s) +
      Cell(kXlsFormula, 4, 2, Number(2, 2) + Number(0x24, 4) + "\xFF\xFF"s);
  const auto table = OpenTable(files.Put("a.xls", Container(Book(kNew, globals, "\1\0F"s, cells))));
  EXPECT_EQ(table->Sheets()[0].name, "F");
  EXPECT_EQ(Dump(*table),
            "1:a|€A|\n2:||n7|n0.25|n-1.5|d01-07-2026|\n3:n1|bFALSO|\n"
            "4:!#NULL!|!#DIV/0!|!#VALUE!|!#REF!|!#NAME?|!#NUM!|!#N/A|\n5:f=t||f=!#NUM!|\n");
}

TEST(OldWorkbook, TextsOfBefore1997AreOfOneByteACharacter) {
  const TableFiles files;
  const std::string globals = Record(kXlsFormat, Number(200, 2) + "\6d/m/yy"s) +
                              Record(kXlsStyle, Number(0, 2) + Number(200, 2)) +
                              Record(kXlsCalendar, Number(1, 2));
  const std::string cells = Cell(kXlsLabel, 0, 0, Number(2, 2) + "\xE1\x80z"s) +
                            Cell(kXlsShortNumber, 0, 1, Number(44742U << 2 | 2, 4));
  const auto table = OpenTable(files.Put("a.xls", Container(Book(kOld, globals, "\2Jo"s, cells))));
  EXPECT_EQ(table->Sheets()[0].name, "Jo");
  EXPECT_TRUE(table->Facts().calendar1904);
  EXPECT_EQ(Dump(*table), "1:á€|d01-07-2026|\n");
}

TEST(OldWorkbook, SharedTextsGoOnInFurtherRecords) {
  const TableFiles files;
  const std::string globals =
      Record(kXlsTexts, Number(6, 4) + Number(6, 4) + "\2\0\0ab"s +
                            // Rich and of Asia: what follows the text is passed over, across records.
                            "\1\0\x0C\1\0\2\0\0\0c++"s) +
      Record(kXlsContinued, "++aa"s + "\4\0\1\xAC\x20\x3D\xD8"s) +
      Record(kXlsContinued, "\1\x97\xDE\x3D\xD8"s + "\3\0\1\x97\xDE\x78\0\x3D\xD8"s + "\2\0\0d"s) +
      Record(kXlsContinued, ""s) + Record(kXlsContinued, "\1\xE9\0"s);
  std::string cells;
  for (std::uint32_t i = 0; i < 6; ++i) cells += Cell(kXlsSharedLabel, 0, i, Number(i, 4));
  const auto table = OpenTable(files.Put("a.xls", Container(Book(kNew, globals, "\1\0F"s, cells))));
  EXPECT_EQ(Dump(*table), "1:ab|c|€🚗\xEF\xBF\xBD|\xEF\xBF\xBDx\xEF\xBF\xBD|dé|\n");
}

TEST(OldWorkbook, ThatIsNoWorkbookIsRefused) {
  const TableFiles files;
  std::string sheet;
  for (std::uint32_t i = 0; i < 5; ++i) sheet += Cell(kXlsShortNumber, i, 0, Number(2, 4));
  const std::string whole = Book(kNew, "", "\1\0F"s, sheet);
  const std::string chart = Record(kXlsBegin, Number(kNew, 4)) +
                            Record(kXlsSheet, Number(0, 5) + Number(2, 1) + "\1\0F"s) + Record(kXlsEnd);
  const std::pair<std::string, const char*> refused[] = {
      {Book(0x400, "", "\1\0F"s, sheet), "anterior a 1993"},
      {Record(kXlsEnd), "anterior a 1993"},
      {chart, "nenhuma folha com células"},
      {Book(kNew, Record(kXlsProtected, Number(1, 2)), "\1\0F"s, sheet), "palavra-passe"},
      {Book(kNew, Record(kXlsTexts, Number(1, 4) + Number(1, 4) + "\5\0\0ab"s), "\1\0F"s, sheet),
       "faltam textos"},
      {Book(kNew, Record(kXlsTexts, Number(1, 4) + Number(1, 4) + "\1\0\x8\2\0a++"s), "\1\0F"s, sheet),
       "faltam textos"},
      {Book(kNew, "", "\1\0F"s, Cell(kXlsShortNumber, 0, 16384, Number(2, 4))), "está fora da folha"},
      {whole.substr(0, whole.size() - 4), "acaba antes do fim"},
      {whole.substr(0, 12), "acaba antes do fim"}};
  for (const auto& [stream, says] : refused) {
    const std::string told = RefusalOf(files.Put("a.xls", Container(stream)));
    EXPECT_NE(told.find(says), std::string::npos) << told;
  }
  EXPECT_EQ(RefusalOf(files.Put("a.xls", Container(whole))), "");
  // A stream whose parts lie outside of it, and one whose parts end too soon.
  std::string directory = Container(whole);
  directory.replace(512 * 2 + 128 + 116, 4, Number(99, 4));
  EXPECT_NE(RefusalOf(files.Put("a.xls", directory)).find("não se seguem"), std::string::npos);
  directory.replace(512 * 2 + 128 + 116, 4, Number(0, 4));
  EXPECT_NE(RefusalOf(files.Put("a.xls", directory)).find("acaba antes do fim"), std::string::npos);
}

}  // namespace
}  // namespace exchange
