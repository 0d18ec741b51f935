#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/table/shared_texts.h"

namespace exchange {

/// One record of an old workbook.
struct XlsRecord {
  std::uint32_t type = 0;
  std::string_view data;
};

/// Walks over the records of a workbook's stream.
class XlsRecords {
 public:
  explicit XlsRecords(std::string_view stream, std::size_t at = 0) : stream_(stream), at_(at) {}
  /// False at the end of the stream, also where it is cut within a record.
  bool Next(XlsRecord& record);
  std::size_t at() const { return at_; }

 private:
  std::string_view stream_;
  std::size_t at_;
};

enum XlsType : std::uint32_t {
  kXlsFormula = 0x06,
  kXlsEnd = 0x0A,
  kXlsCalendar = 0x22,
  kXlsProtected = 0x2F,
  kXlsContinued = 0x3C,
  kXlsColumns = 0x7D,
  kXlsSheet = 0x85,
  kXlsNumbers = 0xBD,
  kXlsRichLabel = 0xD6,
  kXlsStyle = 0xE0,
  kXlsTexts = 0xFC,
  kXlsSharedLabel = 0xFD,
  kXlsNumber = 0x203,
  kXlsLabel = 0x204,
  kXlsTruthOrError = 0x205,
  kXlsResultText = 0x207,
  kXlsRow = 0x208,
  kXlsShortNumber = 0x27E,
  kXlsFormat = 0x41E,
  kXlsBegin = 0x809,
};

struct XlsSheet {
  std::string name;
  bool hidden = false;
  std::size_t at = 0;  // within the stream
};

/// What an old workbook says before its sheets.
struct XlsWorkbook {
  bool wide = true;  // texts are UTF-16, else Windows-1252 (versions of before 1997)
  bool calendar1904 = false;
  std::vector<XlsSheet> sheets;
  std::vector<bool> dateStyles;
  SharedTexts texts;
};

/// Throws std::runtime_error at a workbook that is protected, cut short or older than 1993.
XlsWorkbook ReadXlsWorkbook(std::string_view stream);
/// A text of a record, behind a length of `lengthSize` bytes.
std::string XlsText(std::string_view data, std::size_t lengthSize, bool wide);

}  // namespace exchange
