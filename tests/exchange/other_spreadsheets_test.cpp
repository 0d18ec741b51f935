// Spreadsheets and pages as programs other than the usual ones write them.

#include <gtest/gtest.h>

#include <string>

#include "exchange/table/cell_values.h"
#include "exchange/table/xlsx_workbook.h"
#include "exchange/table_files.h"
#include "support/whole_text.h"

namespace exchange {
namespace {

/// A workbook's main part and sheets may lie anywhere; all shades of yes and no.
TEST(OtherSpreadsheets, ReadsXlsxOfOtherPrograms) {
  const TableFiles files;
  const auto table = OpenTable(files.Zip(
      "o.xlsx",
      {{"_rels/.rels", "<R><Relationship Type='x/officeDocument' Target='a/b/livro.xml'/></R>"},
       {"a/b/livro.xml",
        "<w xmlns:r='u/relationships'><workbookPr date1904='on'/><sheets><sheet name='U' r:id='1'/><sheet "
        "name='D' "
        "state='hidden' r:id='2'/><sheet name='T' r:id='3'/><sheet name='Q' r:id='4'/></sheets></w>"},
       {"a/b/_rels/livro.xml.rels",
        "<R><Relationship Id='1' Type='x/worksheet' Target='./u.xml'/><Relationship Id='2' "
        "Type='x/worksheet' "
        "Target='../d.xml'/><Relationship Id='3' Type='x/worksheet' Target='../../../t.xml'/></R>"},
       {"a/b/u.xml",
        "<s><cols><col min='0' max='1' hidden='1'/><col min='2' max='2' hidden='true'/></cols><sheetData>"
        "<row hidden='true'><c t='d'><v>nunca</v></c><c><v>x</v></c><c t='s'><v>9</v></c><c "
        "t='b'><v>true</v></c>"
        "<c t='b'><v>0</v></c><c s='9'><v>1</v></c><c t='inlineStr'><is><t>a</t><rPh><t>z</t></rPh><t>b</t>"
        "</is></c><c r='AA2'><v>2</v></c></row></sheetData><v>7</v></s>"},
       {"a/d.xml", "<s><sheetData><row><c><v>5</v></c></row></sheetData></s>"},
       {"t.xml", "<s><sheetData><row><c r='XFD1'><v>6</v></c></row></sheetData></s>"}}));
  EXPECT_TRUE(table->Facts().calendar1904);
  ASSERT_EQ(table->Sheets().size(), 3U);
  EXPECT_TRUE(table->Sheets()[1].hidden);
  EXPECT_EQ(table->HiddenColumns(), (std::vector<bool>{false, true}));
  EXPECT_EQ(Dump(*table), "1h:nunca|!x||bVERDADEIRO|bFALSO|n1|ab|" + std::string(19, '|') + "n2|\n");
  table->Open(1);
  EXPECT_EQ(Dump(*table), "1:n5|\n");
  table->Open(2);
  EXPECT_EQ(Dump(*table), "1:" + std::string(16383, '|') + "n6|\n");
}

TEST(OtherSpreadsheets, ReadsOdsOfOtherPrograms) {
  const TableFiles files;
  const auto cell = [](const std::string& attributes, const std::string& content) {
    return "<table:table-cell " + attributes + ">" + content + "</table:table-cell>";
  };
  const auto of = [&](const std::string& type, const std::string& name, const std::string& value) {
    return cell("office:value-type='" + type + "' office:" + name + "='" + value + "'",
                "<text:p>" + value + "</text:p>");
  };
  const auto failed = [&](const std::string& face) {
    return cell("table:formula='x' office:value-type='string'", "<text:p>" + face + "</text:p>");
  };
  const std::string rows[] = {
      cell("", "<text:h>a<text:tab/>b<text:line-break/>c</text:h>") +
          cell("", "<text:p/><text:p> d<text:s/></text:p><draw><text:p>e</text:p></draw>") +
          cell("", "<frame><text:p>x</text:p></frame><custom-shape><text:p>x</text:p></custom-shape>") +
          cell("office:value-type='string' office:string-value='f'", ""),
      of("float", "value", "x") + of("boolean", "boolean-value", "false") +
          of("date", "date-value", "2026-13-01"),
      of("time", "time-value", "PT23H59M59.9S") + of("time", "time-value", "PT24H") +
          of("time", "time-value", "P1D") + of("time", "time-value", "PT5X") +
          of("time", "time-value", "PT90M"),
      failed("#N/A") + failed("#N/D") + failed("Err:502") + failed("#NAME?") + failed("#REF!") +
          failed("#!") + failed("#1") + failed("a!") +
          cell("office:value-type='string'", "<text:p>#N/A</text:p>")};
  std::string all;
  for (const std::string& row : rows) all += "<table:table-row>" + row + "</table:table-row>";
  const auto table = OpenTable(files.Zip(
      "f", {{"META-INF/manifest.xml", "<m/>"},
            {"content.xml", Spreadsheet("<table:null-date table:date-value='1904-01-01'/><table:table "
                                        "table:name='A'><table:shapes><text:p>x</text:p></table:shapes>" +
                                        all + "</table:table>")}}));
  EXPECT_TRUE(table->Facts().calendar1904);
  EXPECT_EQ(Dump(*table),
            "1:a\tb\nc|\n d \ne||f|\n2:!x|bFALSO|2026-13-01|\n3:d23:59:59|PT24H|P1D|PT5X|d01:30:00|\n"
            "4:f=!#N/A|f=!#N/D|f=!Err:502|f=!#NAME?|f=!#REF!|f=#!|f=#1|f=a!|#N/A|\n");
}

TEST(OtherSpreadsheets, ReadsPagesAsTheirMarksCanBeMeant) {
  const TableFiles files;
  const std::pair<std::string, const char*> pages[] = {
      {"<table><tr><td rowspan=3 colspan=2>a<td>b<td rowspan=2>c<tr><td>d<tr><td>e<td>f<tr><td>g</table>",
       "1:a||b|c|\n2:||d|\n3:||e|f|\n4:g|\n"},
      {"<table><tr><td>a<p>b<div>c </div> d <br> <br>e</td><td colspan=x> f\t\r\n g "
       "</td><td>&nbsp;</td><td>h</table>",
       "1:a\nb\nc d\ne|f g||h|\n"},
      {"<html><p>antes</p><table></table><table><tr style='color:red;display:none'><th>a</table>", "1h:a|\n"},
      {"\xEF\xBB\xBF <TABLE><tr><td>\xC3\xA3</table>", "1:\xC3\xA3|\n"},
      {"<?xml version='1.0'?><html><table><tr><td>a</table></html>", "1:a|\n"}};
  for (const auto& [page, rows] : pages) {
    ASSERT_EQ(RefusalOf(files.Put("p.xls", page)), "") << page;
    const auto table = OpenTable(files.Path("p.xls"));
    EXPECT_EQ(table->Facts().format, "HTML");
    EXPECT_EQ(Dump(*table), rows);
  }
  std::string wide = "\xFF\xFE";
  for (const char c : std::string("<html><table><tr><td>a</table>")) wide += std::string{c, '\0'};
  EXPECT_EQ(Dump(*OpenTable(files.Put("w.xls", wide))), "1:a|\n");
  EXPECT_EQ(OpenTable(files.Put("t.xls", "<p>a;b"))->Facts().format, "CSV");
}

/// What a cell's number, day or format comes to; its kind stands before it.
std::string CellAs(const std::string& input) {
  const std::string kind = input.substr(0, input.find(' '));
  const std::string text = input.find(' ') == std::string::npos ? "" : input.substr(input.find(' ') + 1);
  if (kind == "formato") return ShowsDate(text) ? "data" : "-";
  if (kind == "escapes") return WithoutEscapes(text);
  if (kind == "dia") {
    const auto date = ReadIsoDate(text);
    return date ? date->ToText() : "-";
  }
  if (kind == "datas") {
    std::string all;
    for (int format = 0; format <= 70; ++format)
      if (IsBuiltInDate(format)) all += std::to_string(format) + " ";
    return all;
  }
  const auto number = ReadNumber(text);
  if (!number) return "-";
  if (kind == "número") return NumberCell(*number).text;
  return SerialCell(*number, false).text + " | " + SerialCell(*number, true).text;
}

TEST(OtherSpreadsheets, CellsAreReadAsIsWrittenDown) {
  testing_support::ExpectCases(PARVEL_SOURCE_DIR "/tests/exchange/cells.txt", CellAs);
}

}  // namespace
}  // namespace exchange
