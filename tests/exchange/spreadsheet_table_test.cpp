#include <gtest/gtest.h>

#include <string>

#include "exchange/table/xls_workbook.h"
#include "exchange/table_files.h"

namespace exchange {
namespace {

using Parts = std::vector<std::pair<std::string, std::string>>;

const std::string kRelationships =
    R"(<Relationships><Relationship Id="r1" Type="x/worksheet" Target="worksheets/sheet1.xml"/>
<Relationship Id="r2" Type="x/worksheet" Target="/xl/other.xml"/><Relationship Id="r3" Type="x/chartsheet" Target="c.xml"/>
<Relationship Id="r4" Type="x/styles" Target="styles.xml"/>
<Relationship Id="r5" Type="x/sharedStrings" Target="texts.xml"/></Relationships>)";

/// A workbook of one sheet, and a hidden one, around the rows given.
Parts Workbook(const std::string& rows, const std::string& calendar = "") {
  return {
      {"xl/workbook.xml",
       "<workbook xmlns:r='u/relationships'><workbookPr " + calendar +
           "/><sheets><sheet name='G' r:id='r3'/><sheet name='Frota' sheetId='7' r:id='r1'/>"
           "<sheet name='B' state='veryHidden' r:id='r2'/></sheets></workbook>"},
      {"xl/_rels/workbook.xml.rels", kRelationships},
      {"xl/styles.xml",
       "<s><numFmts><numFmt numFmtId='170' formatCode='[$-816]d &quot;de&quot; mmmm'/><numFmt numFmtId='171' "
       "formatCode='#,##0.00 &quot;dias&quot;'/></numFmts><cellStyleXfs><xf numFmtId='14'/></cellStyleXfs>"
       "<cellXfs><xf numFmtId='0'/><xf numFmtId='14'/><xf numFmtId='170'/><xf "
       "numFmtId='171'/></cellXfs></s>"},
      {"xl/texts.xml",
       "<sst><si><t>Matr\xC3\xAD"
       "cula</t></si><si><r><t>a</t></r><r><t xml:space='preserve'> b</t></r><rPh><t>z</t>"
       "</rPh></si><si><t>x_x000A_y &amp; z</t></si></sst>"},
      {"xl/worksheets/sheet1.xml",
       "<worksheet><cols><col min='2' max='3' hidden='1'/><col min='5' max='5'/></cols>"
       "<sheetData>" +
           rows + "</sheetData></worksheet>"},
      {"xl/other.xml", "<worksheet><sheetData><row><c><v>5</v></c></row></sheetData></worksheet>"}};
}

TEST(SpreadsheetTable, ReadsXlsxAsItIsMeant) {
  const TableFiles files;
  const std::string file = files.Zip(
      "mes.csv",
      Workbook(
          "<row r='1'><c r='A1' t='s'><v>0</v></c><c r='C1' t='s'><v>1</v></c><c t='s'><v>2</v></c></row>"
          "<row r='2' hidden='1'><c r='A2' s='1'><v>46204</v></c><c r='B2' s='2'><v>46204.5</v></c><c "
          "s='3'><v>3.5</v></c></row>"
          "<row r='4'><c r='A4'><v/></c></row>"
          "<row r='7'><c t='b'><v>1</v></c><c t='e'><v>#N/A</v></c><c t='inlineStr'><is><t>em "
          "linha</t></is></c>"
          "<c "
          "t='d'><v>2026-07-01T08:15:00</v></c><c><v>1E3</v></c><c><v>0.30000000000000004</v></"
          "c><c><v>7824001234567890</v></c></row>"
          "<row><c><f>A1</f><v>2</v></c><c><f>A1</f></c><c t='str'><f>A1</f><v>t</v></c><c "
          "t='str'><f>A1</f><v></v></c>"
          "<c t='e'><f>A1</f><v>#DIV/0!</v></c></row>"));
  const auto table = OpenTable(file);
  EXPECT_EQ(table->Facts().format, "XLSX");
  ASSERT_EQ(table->Sheets().size(), 2U);
  EXPECT_EQ(table->Sheets()[0].name, "Frota");
  EXPECT_TRUE(table->Sheets()[1].hidden);
  EXPECT_EQ(table->HiddenColumns(), (std::vector<bool>{false, true, true}));
  const std::string rows =
      "1:Matr\xC3\xAD"
      "cula||a b|x\ny & z|\n2h:d01-07-2026|d01-07-2026 12:00:00|n3.5|\n"
      "7:b"
      "VERDADEIRO|!#N/A|em linha|d01-07-2026 08:15:00|n1000|n0.3|n7824001234567890|\n"
      "8:f=n2|f=?|f=t||f=!#DIV/0!|\n";
  EXPECT_EQ(Dump(*table), rows);
  table->Open(1);
  EXPECT_EQ(Dump(*table), "1:n5|\n");
  EXPECT_TRUE(table->HiddenColumns().empty());
  table->Open(0);
  EXPECT_EQ(Dump(*table), rows);
  const auto old =
      OpenTable(files.Zip("mac.xlsx", Workbook("<row><c s='1'><v>44742</v></c></row>", "date1904='1'")));
  EXPECT_TRUE(old->Facts().calendar1904);
  EXPECT_EQ(Dump(*old), "1:d01-07-2026|\n");
}

TEST(SpreadsheetTable, ReadsOdsAsItIsMeant) {
  const TableFiles files;
  const std::string file = files.Zip("f", {{"META-INF/manifest.xml", "<m/>"}, {"content.xml", Spreadsheet(R"(
<table:table table:name="Frota"><table:table-column table:number-columns-repeated="2"/><table:table-column table:visibility="collapse"/>
<table:table-row table:number-rows-repeated="2"><table:table-cell/></table:table-row>
<table:table-row table:number-rows-repeated="2"><table:table-cell office:value-type="string"><text:p>a <text:span>b</text:span></text:p><text:p>c<text:s text:c="2"/>d</text:p>
<office:annotation><text:p>nota</text:p></office:annotation></table:table-cell><table:covered-table-cell/><table:table-cell table:number-columns-repeated="2"
office:value-type="currency" office:value="4.5"><text:p>4,50</text:p></table:table-cell><table:table-cell table:number-columns-repeated="16000"/></table:table-row>
<table:table-row table:visibility="filter"><table:table-cell office:value-type="date" office:date-value="2026-07-01T08:15:00"/>
<table:table-cell office:value-type="time" office:time-value="PT08H15M00S"/><table:table-cell office:value-type="boolean" office:boolean-value="true"/>
<table:table-cell office:value-type="percentage" office:value="0.23"/></table:table-row>
<table:table-row><table:table-cell table:formula="x" office:value-type="float" office:value="2"/><table:table-cell table:formula="x"/>
<table:table-cell table:formula="x" office:value-type="string" office:string-value="" calcext:value-type="error"><text:p>#DIV/0!</text:p></table:table-cell></table:table-row>
<table:table-row table:number-rows-repeated="1048570"><table:table-cell/></table:table-row></table:table>
<table:table table:name="B"><table:table-row><table:table-cell office:value-type="float" office:value="5"/></table:table-row></table:table>)")}});
  const auto table = OpenTable(file);
  EXPECT_EQ(table->Facts().format, "ODS");
  ASSERT_EQ(table->Sheets().size(), 2U);
  EXPECT_EQ(table->HiddenColumns(), (std::vector<bool>{false, false, true}));
  EXPECT_EQ(Dump(*table),
            "3:a b\nc  d||n4.5|n4.5|\n4:a b\nc  d||n4.5|n4.5|\n"
            "5h:d01-07-2026 08:15:00|d08:15:00|bVERDADEIRO|n0.23|\n6:f=n2|f=?|f=!#DIV/0!|\n");
  table->Open(1);
  EXPECT_EQ(Dump(*table), "1:n5|\n");
}

TEST(SpreadsheetTable, AnySheetIsReadToItsEndPastOthersOfAnyLength) {
  const TableFiles files;
  const auto sheet = [](const std::string& name) {
    std::string rows;
    for (int row = 1; row <= 3000; ++row)
      rows += R"(<table:table-row><table:table-cell office:value-type="string"><text:p>)" + name +
              std::to_string(row) + (row % 1000 != 0 ? "" : "<table:table><table:table-row/></table:table>") +
              "</text:p></table:table-cell></table:table-row>";
    return "<table:table table:name=\"" + name + "\">" + rows + "</table:table>";
  };
  const auto table = OpenTable(
      files.Zip("f", {{"META-INF/manifest.xml", "<m/>"},
                      {"content.xml", Spreadsheet("<table:dde-links><table:table/></table:dde-links>" +
                                                  sheet("A") + sheet("B") + sheet("C"))}}));
  ASSERT_EQ(table->Sheets().size(), 3U);
  for (const std::size_t each : {2U, 0U, 1U}) {
    table->Open(each);
    std::string expected;
    for (int row = 1; row <= 3000; ++row)
      expected += std::to_string(row) + ":" + "ABC"[each] + std::to_string(row) + "|\n";
    EXPECT_EQ(Dump(*table), expected) << each;
  }
}

TEST(SpreadsheetTable, ReadsOldXlsAsItIsMeant) {
  const auto table = OpenTable(PARVEL_SOURCE_DIR "/tests/exchange/tables/frota.xls");
  EXPECT_EQ(table->Facts().format, "XLS");
  ASSERT_EQ(table->Sheets().size(), 2U);
  EXPECT_TRUE(table->Sheets()[1].hidden);
  EXPECT_EQ(
      Dump(*table),
      "1:Matr\xC3\xAD"
      "cula|Data|Hora|Litros|Pago|Erro|\n3:10-GJ-10|d01-07-2026|d12:30:00|n45.123|bVERDADEIRO|!#DIV/0!|\n"
      "4h:\xE2\x82\xAC 20|d02-07-2026 08:15:00||n7824001234567890|n-12|\n"
      "5:f=n90.25|f=!#DIV/0!|f=bVERDADEIRO|f=abc|f=d01-07-2026 12:00:00||f=?|\n");
  EXPECT_EQ(table->HiddenColumns(), (std::vector<bool>{false, false, false, true}));
  table->Open(1);
  EXPECT_EQ(Dump(*table), "1:x|\n");
}

TEST(SpreadsheetTable, TextsOfOldXlsEndWithTheirLengthOrWithTheirRecord) {
  using namespace std::string_view_literals;
  EXPECT_EQ(XlsText("\x03\x00\x00"
                    "abcde"sv,
                    2, true),
            "abc");
  EXPECT_EQ(XlsText("\x02\x01"
                    "a\0\xAC\x20"
                    "b\0"sv,
                    1, true),
            "a\xE2\x82\xAC");
  EXPECT_EQ(XlsText("\x09\x01"
                    "a\0b"sv,
                    1, true),
            "a");
  EXPECT_EQ(XlsText("\x03\x00"
                    "a\x80"
                    "bcd"sv,
                    2, false),
            "a\xE2\x82\xAC"
            "b");
  EXPECT_EQ(XlsText("\x09\x00"
                    "ab"sv,
                    2, false),
            "ab");
  EXPECT_EQ(XlsText("\x09"sv, 2, true), "");
}

TEST(SpreadsheetTable, ReadsThePageThatIsNamedXls) {
  const TableFiles files;
  const auto table = OpenTable(
      files.Put("mes.xls",
                "\n<HTML><meta charset=iso-8859-1><body><table><tr><td>t\xEDtulo<table><tr><th>Data<th "
                "colspan=2>Valor\n  total</tr>"
                "<tr style='display: none'><td rowspan=2>a&nbsp;b<td>1<br>2<td>3</tr><tr><td>&euro; "
                "&lt;4</tr></table></td></tr></table>"
                "<table><tr><td>fim</table>"));
  EXPECT_EQ(table->Facts().format, "HTML");
  ASSERT_EQ(table->Sheets().size(), 2U);
  EXPECT_EQ(Dump(*table), "1:Data|Valor total|\n2h:a b|1\n2|3|\n3:|\xE2\x82\xAC <4|\n");
  table->Open(1);
  EXPECT_EQ(Dump(*table), "1:fim|\n");
}

TEST(SpreadsheetTable, RefusesWhatItCannotReadAndSaysWhy) {
  const TableFiles files;
  const std::string whole = files.Zip("w.xlsx", Workbook("<row><c><v>1</v></c></row>"));
  std::string bytes;
  {
    std::ifstream in(whole, std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(in), {});
  }
  std::string xls;
  {
    std::ifstream in(PARVEL_SOURCE_DIR "/tests/exchange/tables/frota.xls", std::ios::binary);
    xls.assign(std::istreambuf_iterator<char>(in), {});
  }
  std::string encrypted = xls;
  const std::string from("W\0o\0r\0k\0b\0o\0o\0k\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 32);
  const std::string to("E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0", 32);
  encrypted.replace(encrypted.find(from), 32, to);
  encrypted[encrypted.find(to) + 64] = 34;
  // The directory goes on in a sector of which the table of sectors says nothing.
  std::string unchained = xls + std::string(200UL * 512, '\0');
  unchained.replace(512 * 9 + 4 * 9, 4, std::string("\x96\0\0\0", 4));
  std::string bomb = bytes;
  bomb.replace(bomb.rfind("PK\x01\x02") + 24, 4,
               std::string("\0\0\0\x20", 4));  // says that it unpacks to 512 MB
  const std::string long1(200000, 'x');
  const struct {
    std::string file;
    const char* says;
  } refused[] = {
      {files.Put("a.xlsx", bytes.substr(0, bytes.size() - 30)), "incompleto"},
      {files.Put("a.xls", xls.substr(0, xls.size() / 2)), "incompleto"},
      {files.Put("b.xls", encrypted), "palavra-passe"},
      {files.Put("q.xls", unchained), "não se seguem"},
      {files.Zip("b.ods", {{"META-INF/manifest.xml", "<a><encryption-data/></a>"}, {"content.xml", "x"}}),
       "palavra-passe"},
      {files.Zip("c.xlsx", Workbook("<row><c><v>1</v></row>")), "não está bem formada"},
      {files.Zip("d.xlsx", Workbook("<row><c t='inlineStr'><is><t>" + long1 + "</t></is></c></row>")),
       "grande demais"},
      {files.Zip("e.xlsx", Workbook("<row r='1048577'><c><v>1</v></c></row>")), "1.048.576"},
      {files.Put("f.xlsx", bomb), "300 MB"},
      {files.Zip(
           "g.ods",
           {{"META-INF/manifest.xml", "<m/>"},
            {"content.xml",
             Spreadsheet("<table:table><table:table-row table:number-rows-repeated='1000000'>"
                         "<table:table-cell table:number-columns-repeated='1000' office:value-type='string'>"
                         "<text:p>" +
                         std::string(5000, 'b') +
                         "</text:p></table:table-cell></table:table-row></table:table>")}}),
       "repete"},
      {files.Zip("h.zip", {{"a.txt", "x"}}), "arquivo comprimido"},
      {files.Zip("i.docx", {{"_rels/.rels", "<a/>"}, {"word/document.xml", "x"}}), "arquivo comprimido"},
      {files.Put("j.csv", "%PDF-1.4"), "PDF"},
      {files.Put("r.csv", "\x89PNG"), "uma imagem"},
      {files.Put("3.csv", "\xFF\xD8\xFF"), "uma imagem"},
      {files.Put("4.csv", "GIF89a"), "uma imagem"},
      {files.Put("5.csv", "Rar!"), "arquivo comprimido"},
      {files.Put("6.csv", "7z\xBC\xAF"), "arquivo comprimido"},
      {files.Put("7.csv", "\x1F\x8B"), "arquivo comprimido"},
      {files.Put("s.csv", "{\\rtf1"), "documento de texto"},
      {files.Put("t.csv", "MIME-Version: 1"), "página da Web"},
      {files.Put("u.csv", "SQLite format 3"), "uma base de dados"},
      {files.Zip("v.xlsx", {{"xl/workbook.bin", "x"}, {"xl/workbook.xml", "x"}}), "XLSB"},
      {files.Zip("x.ods", {{"META-INF/manifest.xml", "<a/>"}}), "arquivo comprimido"},
      {files.Zip("y.xlsx", Workbook("<row><c r='B1'><v>1</v></c><c r='B1'><v>1</v></c></row>")),
       "ordem das colunas"},
      {files.Zip("z.xlsx", Workbook("<row r='7'><c r='XFE1'><v>1</v></c></row>")), "linha 7"},
      {files.Zip("1.ods",
                 {{"META-INF/manifest.xml", "<m/>"},
                  {"content.xml", Spreadsheet("<table:table><table:table-row><table:table-cell "
                                              "table:number-columns-repeated='16385'><text:p>a</text:p>"
                                              "</table:table-cell></table:table-row></table:table>")}}),
       "16.384"},
      {files.Put("2.xls", "<table><tr><td>a<td colspan=16384>b</table>"), "16.384"},
      {files.Put("k.csv", ""), "vazio"},
      {files.Put("o.xls", "<html><table><tr><td>" + long1 + "</table></html>"), "mais texto"},
      {files.Zip("p.ods", {{"META-INF/manifest.xml", "<m/>"},
                           {"content.xml", Spreadsheet("<table:table><table:table-row><table:table-cell>"
                                                       "<text:p>" +
                                                       long1 +
                                                       "</text:p></table:table-cell></table:table-row>"
                                                       "</table:table>")}}),
       "mais texto"},
      {files.Put("l.xls", "<html><p>Sem sess\xE3o</html>"), "sem nenhuma tabela"},
      {files.Put("m.xml", "<?xml version='1.0'?><a/>"), "XML"},
      {files.Path("n.csv"), "não existe"}};
  for (const auto& r : refused)
    EXPECT_NE(RefusalOf(r.file).find(r.says), std::string::npos) << r.file << ": " << RefusalOf(r.file);
}

}  // namespace
}  // namespace exchange
