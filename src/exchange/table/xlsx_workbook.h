#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/table/shared_texts.h"
#include "exchange/table/zip_archive.h"

namespace exchange {

struct XlsxSheet {
  std::string name;
  bool hidden = false;
  std::string entry;  // within the archive
};

/// What a workbook says before its sheets.
struct XlsxWorkbook {
  std::vector<XlsxSheet> sheets;
  bool calendar1904 = false;
  std::vector<bool> dateStyles;  // by the number of a cell's style
  SharedTexts texts;
};

/// Reads it; `whileReading` is called now and then and may throw.
XlsxWorkbook ReadXlsxWorkbook(const ZipArchive& archive, const std::function<void()>& whileReading);

/// The text that "_x000D_" and its like stand for.
std::string WithoutEscapes(std::string_view text);

}  // namespace exchange
