#include "exchange/table/xlsx_workbook.h"

#include <charconv>
#include <map>
#include <utility>

#include "exchange/table/archived_document.h"
#include "exchange/table/cell_values.h"
#include "exchange/table/limits.h"
#include "exchange/utf8.h"

namespace exchange {
namespace {

constexpr char kWorkbook[] = "xl/workbook.xml";

bool IsTrue(std::string_view text) { return text == "1" || text == "true" || text == "on"; }

int Whole(std::string_view text, int otherwise) {
  int number = otherwise;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// A target of a relationship, as the archive names it.
std::string EntryOf(std::string_view folder, std::string_view target) {
  if (target.starts_with('/')) return std::string(target.substr(1));
  std::string path(folder);
  while (target.starts_with("../")) {
    target.remove_prefix(3);
    path.erase(path.size() > 1 ? path.rfind('/', path.size() - 2) + 1 : 0);
  }
  if (target.starts_with("./")) target.remove_prefix(2);
  return path + std::string(target);
}

/// "xl/workbook.xml" is in "xl/", and its relationships in "xl/_rels/workbook.xml.rels".
std::string FolderOf(const std::string& entry) { return entry.substr(0, entry.rfind('/') + 1); }
std::string RelationshipsOf(const std::string& entry) {
  const std::string folder = FolderOf(entry);
  return folder + "_rels/" + entry.substr(folder.size()) + ".rels";
}

struct Relationships : MarkupHandler {
  explicit Relationships(std::string in) : folder(std::move(in)) {}
  void Begin(std::string_view name, const MarkupAttributes& attributes) override {
    if (name != "Relationship") return;
    const std::string_view type = attributes.Get("Type");
    const std::string kind(type.substr(type.rfind('/') + 1));
    const std::string entry = EntryOf(folder, attributes.Get("Target"));
    first.emplace(kind, entry);
    byId.emplace(attributes.Get("Id"), std::pair(kind, entry));
  }
  void End(std::string_view) override {}
  void Text(std::string_view) override {}

  std::string folder;
  std::map<std::string, std::string> first;  // of each kind
  std::map<std::string, std::pair<std::string, std::string>, std::less<>> byId;
};

struct WorkbookPart : MarkupHandler {
  WorkbookPart(XlsxWorkbook& into, const Relationships& of) : workbook(into), relationships(of) {}
  void Begin(std::string_view name, const MarkupAttributes& attributes) override {
    if (name == "workbookPr") workbook.calendar1904 = IsTrue(attributes.Get("date1904"));
    if (name != "sheet") return;
    const auto part = relationships.byId.find(attributes.Get("id", "relationships"));
    if (part == relationships.byId.end() || part->second.first != "worksheet") return;
    const std::string_view state = attributes.Get("state");
    workbook.sheets.push_back({.name = std::string(attributes.Get("name")),
                               .hidden = state == "hidden" || state == "veryHidden",
                               .entry = part->second.second});
  }
  void End(std::string_view) override {}
  void Text(std::string_view) override {}

  XlsxWorkbook& workbook;
  const Relationships& relationships;
};

struct StylesPart : MarkupHandler {
  explicit StylesPart(std::vector<bool>& into) : dateStyles(into) {}
  void Begin(std::string_view name, const MarkupAttributes& attributes) override {
    if (name == "cellXfs") {
      inCells = true;
    } else if (name == "numFmt") {
      formats[Whole(attributes.Get("numFmtId"), -1)] = ShowsDate(attributes.Get("formatCode"));
    } else if (name == "xf" && inCells) {
      const int format = Whole(attributes.Get("numFmtId"), 0);
      const auto own = formats.find(format);
      dateStyles.push_back(own != formats.end() ? own->second : IsBuiltInDate(format));
    }
  }
  void End(std::string_view name) override {
    if (name == "cellXfs") inCells = false;
  }
  void Text(std::string_view) override {}

  std::vector<bool>& dateStyles;
  std::map<int, bool> formats;
  bool inCells = false;
};

struct TextsPart : MarkupHandler {
  explicit TextsPart(SharedTexts& into) : texts(into) {}
  void Begin(std::string_view name, const MarkupAttributes&) override {
    if (name == "si") text.clear();
    if (name == "rPh") reading = true;
    inText = name == "t" && !reading;
  }
  void End(std::string_view name) override {
    if (name == "si") texts.Add(text);
    if (name == "rPh") reading = false;
    inText = false;
  }
  void Text(std::string_view piece) override {
    if (!inText) return;
    text += piece;
    if (text.size() > kCellLimit)
      throw TooLarge("uma célula tem mais texto do que uma folha de cálculo aceita");
  }

  SharedTexts& texts;
  std::string text;
  bool reading = false;  // within the reading aid of another script
  bool inText = false;
};

void ReadPart(const ZipArchive& archive, const std::string& entry, MarkupHandler& handler,
              const std::function<void()>& whileReading) {
  ArchivedDocument document(archive, entry, handler);
  while (document.Next()) whileReading();
}

}  // namespace

XlsxWorkbook ReadXlsxWorkbook(const ZipArchive& archive, const std::function<void()>& whileReading) {
  XlsxWorkbook workbook;
  std::string entry = kWorkbook;
  if (archive.Has("_rels/.rels")) {
    Relationships root("");
    ReadPart(archive, "_rels/.rels", root, whileReading);
    const auto main = root.first.find("officeDocument");
    if (main != root.first.end()) entry = main->second;
  }
  Relationships parts(FolderOf(entry));
  ReadPart(archive, RelationshipsOf(entry), parts, whileReading);
  WorkbookPart book(workbook, parts);
  ReadPart(archive, entry, book, whileReading);
  if (workbook.sheets.empty()) throw NoTable("não tem nenhuma folha com células");
  const auto styles = parts.first.find("styles");
  if (styles != parts.first.end()) {
    StylesPart handler(workbook.dateStyles);
    ReadPart(archive, styles->second, handler, whileReading);
  }
  const auto texts = parts.first.find("sharedStrings");
  if (texts != parts.first.end()) {
    TextsPart handler(workbook.texts);
    ReadPart(archive, texts->second, handler, whileReading);
  }
  return workbook;
}

std::string WithoutEscapes(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned code = 0;
    if (text.substr(i, 2) == "_x" && i + 6 < text.size() && text[i + 6] == '_') {
      const char* end = text.data() + i + 6;
      if (std::from_chars(text.data() + i + 2, end, code, 16).ptr == end && code != 0 &&
          (code < 0xD800 || code > 0xDFFF)) {
        AppendUtf8(plain, code);
        i += 6;
        continue;
      }
    }
    plain += text[i];
  }
  return plain;
}

}  // namespace exchange
