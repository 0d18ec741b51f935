#include "exchange/table/html_table.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <utility>

#include "exchange/table/cell_values.h"
#include "exchange/table/limits.h"
#include "exchange/table/markup_reader.h"
#include "exchange/table/streamed_table.h"
#include "exchange/table/text_encoding.h"
#include "exchange/utf8.h"

namespace exchange {
namespace {

/// A page as UTF-8, block by block.
class Page {
 public:
  explicit Page(const std::string& file) : file_(file, std::ios::binary), encoding_(DetectEncoding(file_)) {
    file_.seekg(0, std::ios::end);
    size_ = file_.tellg();
    file_.seekg(0);
    if (encoding_ == TextEncoding::kUtf16LittleEndian || encoding_ == TextEncoding::kUtf16BigEndian)
      decoded_ = std::make_unique<Utf16Buffer>(file_, encoding_ == TextEncoding::kUtf16BigEndian);
  }
  /// Empty at the end.
  std::string Read() {
    std::string block(kReadBlock, '\0');
    std::streambuf* const decoded = decoded_.get();
    std::streambuf& from = decoded != nullptr ? *decoded : *file_.rdbuf();
    block.resize(
        static_cast<std::size_t>(from.sgetn(block.data(), static_cast<std::streamsize>(block.size()))));
    read_ += block.size();
    if (read_ > kUnpackedLimit) throw TooLarge("tem mais de 300 MB");
    return encoding_ == TextEncoding::kWindows1252 ? FromWindows1252(block) : block;
  }
  double Progress() const {
    return size_ <= 0 ? 1 : std::min(1.0, static_cast<double>(read_) / static_cast<double>(size_));
  }
  TextEncoding encoding() const { return encoding_; }

 private:
  std::ifstream file_;
  TextEncoding encoding_;
  std::unique_ptr<Utf16Buffer> decoded_;
  std::streamoff size_ = 0;
  std::uint64_t read_ = 0;
};

/// Numbers a page's tables in the order in which they begin, and finds those that hold rows and no other
/// table.
struct TableFinder : MarkupHandler {
  struct Found {
    bool rows = false;
    bool outer = false;
  };
  void Begin(std::string_view name, const MarkupAttributes&) override {
    if (name == "table") {
      if (!open.empty()) found[open.back()].outer = true;
      open.push_back(found.size());
      found.emplace_back();
    } else if (name == "tr" && !open.empty()) {
      found[open.back()].rows = true;
    }
  }
  void End(std::string_view name) override {
    if (name == "table" && !open.empty()) open.pop_back();
  }
  void Text(std::string_view) override {}

  std::vector<std::size_t> open;
  std::vector<Found> found;
};

std::size_t Span(std::string_view text) {
  std::size_t number = 1;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return std::clamp<std::size_t>(number, 1, kColumnLimit);
}

bool IsHidden(const MarkupAttributes& attributes) {
  std::string style(attributes.Get("style"));
  style.erase(std::remove(style.begin(), style.end(), ' '), style.end());
  return style.find("display:none") != std::string::npos;
}

class HtmlTable : public StreamedTable, public MarkupHandler {
 public:
  explicit HtmlTable(const std::string& file) : file_(file) {
    TableFinder finder;
    Page page(file);
    MarkupReader reader(finder, MarkupReader::Kind::kHtml);
    for (std::string block; !(block = page.Read()).empty();) {
      reader.Feed(block);
      CheckTime();
    }
    reader.Finish();
    for (std::size_t i = 0; i < finder.found.size(); ++i) {
      if (!finder.found[i].rows || finder.found[i].outer) continue;
      tables_.push_back(i);
      sheets_.push_back({.name = "Tabela " + std::to_string(sheets_.size() + 1), .hidden = false});
    }
    if (tables_.empty()) throw NoTable("é uma página de HTML sem nenhuma tabela");
    facts_.format = "HTML";
    facts_.encoding = page.encoding();
    Open(0);
  }

  double Progress() const override { return page_ ? page_->Progress() : 1; }

 private:
  // StreamedTable
  void Begin(std::size_t sheet) override;
  bool Feed() override;
  // MarkupHandler
  void Begin(std::string_view name, const MarkupAttributes& attributes) override;
  void End(std::string_view name) override;
  void Text(std::string_view text) override;

  bool Wanted() const { return !open_.empty() && open_.back() == wanted_; }
  void BeginCell(const MarkupAttributes& attributes);
  void EndCell();
  void EndRow();

  std::string file_;
  std::vector<std::size_t> tables_;  // of each sheet, its table's number on the page
  std::unique_ptr<Page> page_;
  std::unique_ptr<MarkupReader> reader_;
  std::size_t wanted_ = 0;
  std::size_t begun_ = 0;
  std::vector<std::size_t> open_;
  bool inRow_ = false;
  bool inCell_ = false;
  bool breakDue_ = false;
  long line_ = 0;
  std::size_t column_ = 0;
  std::size_t columnSpan_ = 1;
  std::vector<std::size_t> covered_;  // of each column, how many further rows a cell above takes
  StreamedRow row_;
  std::string text_;
};

void HtmlTable::Begin(std::size_t sheet) {
  page_ = std::make_unique<Page>(file_);
  reader_ = std::make_unique<MarkupReader>(*this, MarkupReader::Kind::kHtml);
  wanted_ = tables_[sheet];
  begun_ = 0;
  open_.clear();
  covered_.clear();
  inRow_ = inCell_ = false;
  line_ = 0;
}

bool HtmlTable::Feed() {
  if (!reader_) return false;
  const std::string block = page_->Read();
  if (!block.empty()) {
    reader_->Feed(block);
    return true;
  }
  reader_->Finish();
  if (inRow_) EndRow();
  reader_.reset();
  return false;
}

void HtmlTable::Begin(std::string_view name, const MarkupAttributes& attributes) {
  if (name == "table") {
    open_.push_back(begun_++);
  } else if (!Wanted()) {
    return;
  } else if (name == "tr") {
    if (inRow_) EndRow();
    inRow_ = true;
    column_ = 0;
    row_ = {.line = ++line_, .repeated = 1, .hidden = IsHidden(attributes), .cells = {}};
  } else if (name == "td" || name == "th") {
    if (inCell_) EndCell();
    if (inRow_) BeginCell(attributes);
  } else if (name == "br" || name == "p" || name == "div") {
    breakDue_ = true;
  }
}

void HtmlTable::BeginCell(const MarkupAttributes& attributes) {
  while (column_ < covered_.size() && covered_[column_] > 0) --covered_[column_++];
  columnSpan_ = Span(attributes.Get("colspan"));
  if (column_ + columnSpan_ > kColumnLimit) throw TooLarge("tem mais de 16.384 colunas numa linha");
  const std::size_t rows = Span(attributes.Get("rowspan"));
  if (rows > 1) {
    covered_.resize(std::max(covered_.size(), column_ + columnSpan_));
    std::fill_n(covered_.begin() + static_cast<std::ptrdiff_t>(column_), columnSpan_, rows - 1);
  }
  inCell_ = true;
  breakDue_ = false;
  text_.clear();
}

void HtmlTable::EndCell() {
  inCell_ = false;
  while (text_.ends_with(' ')) text_.pop_back();
  if (!text_.empty()) row_.cells.push_back({.column = column_, .repeated = 1, .cell = TextCell(text_)});
  column_ += columnSpan_;
}

void HtmlTable::EndRow() {
  if (inCell_) EndCell();
  for (; column_ < covered_.size(); ++column_)
    if (covered_[column_] > 0) --covered_[column_];
  inRow_ = false;
  Add(std::move(row_));
  row_ = {};
}

void HtmlTable::End(std::string_view name) {
  if (Wanted()) {
    if (inCell_ && (name == "td" || name == "th")) EndCell();
    if (inRow_ && (name == "tr" || name == "table")) EndRow();
  }
  if (name == "table" && !open_.empty()) open_.pop_back();
}

void HtmlTable::Text(std::string_view text) {
  if (!inCell_ || !Wanted()) return;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool noBreak = text.substr(i, 2) == "\xC2\xA0";
    if (noBreak) ++i;
    const char c = noBreak ? ' ' : text[i];
    if (c == ' ' || c == '\n' || c == '\t' || c == '\r') {
      if (!text_.empty() && text_.back() != ' ' && text_.back() != '\n') text_ += ' ';
      continue;
    }
    if (breakDue_ && !text_.empty()) {
      if (text_.back() == ' ') text_.pop_back();
      text_ += '\n';
    }
    breakDue_ = false;
    text_ += c;
  }
  if (text_.size() > kCellLimit)
    throw TooLarge("uma célula tem mais texto do que uma folha de cálculo aceita");
}

}  // namespace

std::unique_ptr<TableReader> OpenHtml(const std::string& file) { return std::make_unique<HtmlTable>(file); }

}  // namespace exchange
