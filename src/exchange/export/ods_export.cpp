#include <array>
#include <charconv>
#include <memory>
#include <stdexcept>

#include "exchange/export/export_faces.h"
#include "exchange/zip_library.h"
#include "platform/format.h"
#include "platform/text.h"

namespace exchange {
namespace {

constexpr char kType[] = "application/vnd.oasis.opendocument.spreadsheet";
constexpr char kSpaces[] =
    R"( xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0")"
    R"( xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0")"
    R"( xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0")"
    R"( xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0")"
    R"( xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0")"
    R"( xmlns:number="urn:oasis:names:tc:opendocument:xmlns:datastyle:1.0")"
    R"( xmlns:config="urn:oasis:names:tc:opendocument:xmlns:config:1.0" office:version="1.2")";
constexpr double kCentimetresACharacter = 0.2;

std::string Manifest() {
  std::string text =
      R"(<?xml version="1.0" encoding="UTF-8"?><manifest:manifest )"
      R"(xmlns:manifest="urn:oasis:names:tc:opendocument:xmlns:manifest:1.0" manifest:version="1.2">)";
  const auto entry = [&](const std::string& path, const std::string& type) {
    text +=
        R"(<manifest:file-entry manifest:full-path=")" + path + R"(" manifest:media-type=")" + type + "\"/>";
  };
  entry("/", kType);
  entry("content.xml", "text/xml");
  entry("settings.xml", "text/xml");
  return text + "</manifest:manifest>";
}

/// Freezes the heading.
std::string Settings(const std::string& sheet) {
  const auto item = [](const char* name, const char* type, const char* value) {
    return std::string("<config:config-item config:name=\"") + name + "\" config:type=\"" + type + "\">" +
           value + "</config:config-item>";
  };
  return std::string(R"(<?xml version="1.0" encoding="UTF-8"?><office:document-settings)") + kSpaces +
         R"(><office:settings><config:config-item-set config:name="ooo:view-settings">)"
         R"(<config:config-item-map-indexed config:name="Views"><config:config-item-map-entry>)"
         R"(<config:config-item-map-named config:name="Tables"><config:config-item-map-entry config:name=")" +
         sheet + "\">" + item("VerticalSplitMode", "short", "2") + item("VerticalSplitPosition", "int", "1") +
         item("ActiveSplitRange", "short", "2") + item("PositionBottom", "int", "1") +
         "</config:config-item-map-entry></config:config-item-map-named></config:config-item-map-entry>"
         "</config:config-item-map-indexed></config:config-item-set></office:settings></"
         "office:document-settings>";
}

/// A column's number format, style of its cells and style of its width, all numbered as the column.
std::string StylesOf(const ExportTable& table, std::size_t column, int width) {
  const ExportColumn& as = table.columns[column];
  const std::string number = std::to_string(column);
  std::string text;
  if (as.kind == ExportKind::kNumber || as.kind == ExportKind::kMoney) {
    text = "<number:number-style style:name=\"n" + number +
           "\"><number:number number:min-integer-digits=\"1\" " + "number:decimal-places=\"" +
           std::to_string(as.decimals) + (as.kind == ExportKind::kMoney ? "\" number:grouping=\"true" : "") +
           "\"/></number:number-style>";
  } else if (as.kind == ExportKind::kDate) {
    const std::string dash = "<number:text>-</number:text>";
    text = "<number:date-style style:name=\"n" + number + "\"><number:day number:style=\"long\"/>" + dash +
           "<number:month number:style=\"long\"/>" + dash + "<number:year number:style=\"long\"/>";
    if (HasTimes(table, column))
      text +=
          "<number:text> </number:text><number:hours number:style=\"long\"/><number:text>:</number:text>"
          "<number:minutes number:style=\"long\"/>";
    text += "</number:date-style>";
  }
  text += "<style:style style:name=\"c" + number + "\" style:family=\"table-cell\"" +
          (text.empty() ? "" : " style:data-style-name=\"n" + number + "\"") + "/>";
  std::array<char, 32> centimetres{};
  const auto end = std::to_chars(centimetres.data(), centimetres.data() + centimetres.size(),
                                 width * kCentimetresACharacter + 0.3, std::chars_format::fixed, 2);
  return text + "<style:style style:name=\"w" + number +
         "\" style:family=\"table-column\"><style:table-column-properties style:column-width=\"" +
         std::string(centimetres.data(), end.ptr) + "cm\"/></style:style>";
}

std::string Number(double number) {
  std::array<char, 400> text{};
  return {text.data(),
          std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr};
}

/// What a cell is, as the attributes of its element; empty for one that holds nothing.
struct ValueOf {
  std::string operator()(const std::string& text) const {
    return text.empty() ? "" : " office:value-type=\"string\"";
  }
  std::string operator()(double number) const { return Value(Number(number)); }
  std::string operator()(platform::Currency money) const { return Value(money.ToText('.')); }
  std::string operator()(platform::Date date) const {
    if (date.IsZero()) return "";
    std::string text = platform::FormatDate(date, "yyyy-mm-dd");
    if (date != date.DayOnly()) text += "T" + platform::FormatDate(date, "hh:nn:ss");
    return " office:value-type=\"date\" office:date-value=\"" + text + "\"";
  }
  std::string operator()(bool truth) const {
    return std::string(" office:value-type=\"boolean\" office:boolean-value=\"") +
           (truth ? "true\"" : "false\"");
  }
  static std::string Value(const std::string& number) {
    return " office:value-type=\"float\" office:value=\"" + number + "\"";
  }
};

/// Lines of a text are paragraphs; blanks beyond the first would be lost.
std::string Paragraphs(const std::string& text) {
  std::string marked = "<text:p>";
  bool blank = true;
  for (char c : MarkedUp(text)) {
    if (c == '\n')
      marked += "</text:p><text:p>";
    else if (c == '\t')
      marked += "<text:tab/>";
    else if (c == ' ' && blank)
      marked += "<text:s/>";
    else
      marked += c;
    blank = c == ' ' || c == '\n';
  }
  return marked + "</text:p>";
}

std::string Content(const ExportTable& table, const std::string& sheet) {
  std::string text = std::string(R"(<?xml version="1.0" encoding="UTF-8"?><office:document-content)") +
                     kSpaces +
                     "><office:automatic-styles><style:style style:name=\"h\" style:family=\"table-cell\">"
                     "<style:text-properties fo:font-weight=\"bold\"/></style:style>";
  const std::vector<int> widths = WidthsOf(table);
  for (std::size_t i = 0; i < table.columns.size(); ++i) text += StylesOf(table, i, widths[i]);
  text +=
      "</office:automatic-styles><office:body><office:spreadsheet><table:table table:name=\"" + sheet + "\">";
  for (std::size_t i = 0; i < table.columns.size(); ++i)
    text += "<table:table-column table:style-name=\"w" + std::to_string(i) + "\"/>";
  text += "<table:table-row>";
  for (const ExportColumn& column : table.columns)
    text += "<table:table-cell table:style-name=\"h\" office:value-type=\"string\">" +
            Paragraphs(column.heading) + "</table:table-cell>";
  text += "</table:table-row>";
  for (const auto& row : table.rows) {
    text += "<table:table-row>";
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const std::string value = std::visit(ValueOf{}, row[i]);
      text += "<table:table-cell table:style-name=\"c" + std::to_string(i) + "\"" + value;
      text +=
          value.empty() ? "/>" : ">" + Paragraphs(FaceOf(row[i], table.columns[i])) + "</table:table-cell>";
    }
    text += "</table:table-row>";
  }
  return text + "</table:table></office:spreadsheet></office:body></office:document-content>";
}

struct Discard {
  void operator()(zip_t* archive) const { Zip().discard(archive); }
};

}  // namespace

void WriteOds(const ExportTable& table, const std::string& file) {
  const std::string sheet = MarkedUp(table.title.empty() ? "Folha1" : table.title);
  const std::array<std::pair<const char*, std::string>, 4> parts = {{{"mimetype", kType},
                                                                     {"META-INF/manifest.xml", Manifest()},
                                                                     {"content.xml", Content(table, sheet)},
                                                                     {"settings.xml", Settings(sheet)}}};
  std::unique_ptr<zip_t, Discard> archive(Zip().open(file.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr));
  bool good = archive != nullptr;
  for (const auto& [name, content] : parts) {
    if (!good) break;
    zip_source_t* source = Zip().source_buffer(archive.get(), content.data(), content.size(), 0);
    const zip_int64_t index = Zip().file_add(archive.get(), name, source, ZIP_FL_ENC_UTF_8);
    if (index < 0) Zip().source_free(source);
    good = index >= 0;
    // The first part tells the kind of the file, and is found by its place among the bytes.
    if (index == 0) Zip().set_file_compression(archive.get(), 0, ZIP_CM_STORE, 0);
  }
  if (good && Zip().close(archive.get()) == 0) {
    static_cast<void>(archive.release());
    return;
  }
  throw std::runtime_error("veja se o disco está cheio");
}

}  // namespace exchange
