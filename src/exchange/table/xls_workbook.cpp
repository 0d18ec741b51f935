#include "exchange/table/xls_workbook.h"

#include <algorithm>
#include <map>
#include <utility>

#include "exchange/table/cell_values.h"
#include "exchange/table/limits.h"
#include "exchange/table/ole_file.h"
#include "exchange/utf8.h"

namespace exchange {
namespace {

constexpr std::uint32_t kVersion97 = 0x600;
constexpr std::uint32_t kVersion93 = 0x500;
constexpr unsigned kTwoBytes = 1;  // of a text's flags
constexpr unsigned kAsian = 4;
constexpr unsigned kRich = 8;

/// Puts units of UTF-16 together.
class Utf16Text {
 public:
  void Add(char32_t unit) {
    if (high_ != 0 && unit >= 0xDC00 && unit < 0xE000) {
      AppendUtf8(text_, 0x10000 + ((high_ - 0xD800) << 10) + (unit - 0xDC00));
      high_ = 0;
      return;
    }
    Flush();
    if (unit >= 0xD800 && unit < 0xDC00)
      high_ = unit;
    else
      AppendUtf8(text_, unit >= 0xDC00 && unit < 0xE000 ? 0xFFFD : unit);
  }
  std::string Take() {
    Flush();
    return std::move(text_);
  }

 private:
  void Flush() {
    if (high_ != 0) AppendUtf8(text_, 0xFFFD);
    high_ = 0;
  }
  std::string text_;
  char32_t high_ = 0;
};

/// The shared texts, which go on from record to record; each record begins with new flags where it cuts a
/// text.
class TextsReader {
 public:
  TextsReader(std::string_view first, XlsRecords records) : part_(first), records_(records) {}

  void ReadInto(SharedTexts& texts) {
    const std::uint32_t count = NumberAt(part_, 4, 4);
    part_.remove_prefix(std::min<std::size_t>(8, part_.size()));
    for (std::uint32_t i = 0; i < count && Ensure(); ++i) texts.Add(ReadText());
  }

 private:
  /// Goes to the next record when this one is used up; false when none goes on.
  bool Ensure() {
    while (part_.empty()) {
      XlsRecord record;
      if (!records_.Next(record) || record.type != kXlsContinued) return false;
      part_ = record.data;
    }
    return true;
  }
  std::uint32_t Take(std::size_t size) {
    if (!Ensure()) throw BrokenFile("faltam textos");
    const std::uint32_t number = NumberAt(part_, 0, size);
    part_.remove_prefix(std::min(size, part_.size()));
    return number;
  }
  std::string ReadText() {
    const std::uint32_t length = Take(2);
    unsigned flags = Take(1);
    const std::uint32_t runs = (flags & kRich) != 0 ? Take(2) : 0;
    const std::uint32_t asian = (flags & kAsian) != 0 ? Take(4) : 0;
    Utf16Text text;
    for (std::uint32_t i = 0; i < length; ++i) {
      if (part_.empty()) flags = Take(1);
      text.Add(Take((flags & kTwoBytes) != 0 ? 2 : 1));
    }
    Skip(std::size_t{runs} * 4 + asian);
    return text.Take();
  }
  void Skip(std::size_t bytes) {
    while (bytes > 0) {
      if (!Ensure()) throw BrokenFile("faltam textos");
      const std::size_t here = std::min(bytes, part_.size());
      part_.remove_prefix(here);
      bytes -= here;
    }
  }

  std::string_view part_;
  XlsRecords records_;
};

void ReadSheet(std::string_view data, XlsWorkbook& book) {
  if (NumberAt(data, 5, 1) != 0 || data.size() < 8) return;  // charts and macros
  book.sheets.push_back({.name = XlsText(data.substr(6), 1, book.wide),
                         .hidden = (NumberAt(data, 4, 1) & 3) != 0,
                         .at = NumberAt(data, 0, 4)});
}

}  // namespace

bool XlsRecords::Next(XlsRecord& record) {
  if (at_ + 4 > stream_.size()) return false;
  const std::size_t size = NumberAt(stream_, at_ + 2, 2);
  if (at_ + 4 + size > stream_.size()) return false;
  record = {.type = NumberAt(stream_, at_, 2), .data = stream_.substr(at_ + 4, size)};
  at_ += 4 + size;
  return true;
}

std::string XlsText(std::string_view data, std::size_t lengthSize, bool wide) {
  const std::size_t length = NumberAt(data, 0, lengthSize);
  data.remove_prefix(std::min(lengthSize, data.size()));
  if (!wide) return FromWindows1252(data.substr(0, length));
  const std::size_t size = (NumberAt(data, 0, 1) & kTwoBytes) != 0 ? 2 : 1;
  data.remove_prefix(std::min<std::size_t>(1, data.size()));
  Utf16Text text;
  for (std::size_t i = 0; i < length && (i + 1) * size <= data.size(); ++i)
    text.Add(NumberAt(data, i * size, size));
  return text.Take();
}

XlsWorkbook ReadXlsWorkbook(std::string_view stream) {
  XlsWorkbook book;
  XlsRecords records(stream);
  XlsRecord record;
  if (!records.Next(record) || record.type != kXlsBegin)
    throw NoTable("é uma folha de cálculo anterior a 1993");
  const std::uint32_t version = NumberAt(record.data, 0, 2);
  if (version != kVersion97 && version != kVersion93) throw NoTable("é uma folha de cálculo anterior a 1993");
  book.wide = version == kVersion97;
  std::map<std::uint32_t, bool> formats;
  bool ended = false;
  while (!ended && records.Next(record)) {
    const std::string_view data = record.data;
    if (record.type == kXlsProtected) throw ProtectedFile();
    if (record.type == kXlsCalendar) book.calendar1904 = NumberAt(data, 0, 2) == 1;
    if (record.type == kXlsSheet) ReadSheet(data, book);
    if (record.type == kXlsTexts) TextsReader(data, records).ReadInto(book.texts);
    if (record.type == kXlsFormat && data.size() > 2)
      formats[NumberAt(data, 0, 2)] = ShowsDate(XlsText(data.substr(2), book.wide ? 2 : 1, book.wide));
    if (record.type == kXlsStyle) {
      const std::uint32_t format = NumberAt(data, 2, 2);
      const auto own = formats.find(format);
      book.dateStyles.push_back(own != formats.end() ? own->second : IsBuiltInDate(static_cast<int>(format)));
    }
    ended = record.type == kXlsEnd;
  }
  if (!ended) throw BrokenFile("acaba antes do fim dos seus dados");
  if (book.sheets.empty()) throw NoTable("não tem nenhuma folha com células");
  return book;
}

}  // namespace exchange
