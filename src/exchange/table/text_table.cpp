#include "exchange/table/text_table.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "exchange/csv_reader.h"
#include "exchange/table/text_encoding.h"
#include "platform/files.h"
#include "platform/text.h"

namespace exchange {
namespace {

constexpr std::size_t kSample = 32768;
constexpr int kSampleRows = 200;

/// How many of the sample's rows have the number of fields that most have, above one.
int RowsAlike(const std::string& sample, char separator) {
  std::istringstream text(sample);
  const CsvShape shape{.separator = separator, .utf8 = true, .header = {}};
  CsvReader reader(text, shape);
  std::map<std::size_t, int> rows;
  std::vector<std::string> row;
  try {
    for (int count = 0; count < kSampleRows && reader.Next(row); ++count) ++rows[row.size()];
  } catch (const std::runtime_error&) {
    // The sample's end may lie within quotes; what was read before tells enough.
  }
  int most = 0;
  for (const auto& [fields, count] : rows)
    if (fields > 1) most = std::max(most, count);
  return most;
}

class TextTable : public TableReader {
 public:
  TextTable(const std::string& file, const TableOptions& options)
      : file_(file, std::ios::binary), sheets_{{.name = platform::FileNameOf(file)}} {
    const TextEncoding encoding = options.encoding ? *options.encoding : DetectEncoding(file_);
    if (encoding == TextEncoding::kUtf16LittleEndian || encoding == TextEncoding::kUtf16BigEndian) {
      decoded_ = std::make_unique<Utf16Buffer>(file_, encoding == TextEncoding::kUtf16BigEndian);
      text_.rdbuf(decoded_.get());
    } else {
      text_.rdbuf(file_.rdbuf());
    }
    shape_.utf8 = encoding != TextEncoding::kWindows1252;
    file_.seekg(0, std::ios::end);
    size_ = file_.tellg();
    shape_.separator = options.separator ? *options.separator : DetectSeparator(Sample());
    facts_ = {.format = "CSV", .encoding = encoding, .separator = shape_.separator};
    reader_.Rewind();
  }

  const TableFacts& Facts() const override { return facts_; }
  const std::vector<SheetInfo>& Sheets() const override { return sheets_; }
  const std::vector<bool>& HiddenColumns() const override { return hidden_; }
  void Open(std::size_t) override { reader_.Rewind(); }

  bool Next(TableRow& row) override {
    do {
      if (!reader_.Next(fields_)) return false;
    } while (std::all_of(fields_.begin(), fields_.end(),
                         [](const std::string& f) { return platform::Trim(f).empty(); }));
    row.line = reader_.line();
    row.hidden = false;
    row.cells.resize(fields_.size());
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      row.cells[i] = TableCell{.kind = fields_[i].empty() ? CellKind::kEmpty : CellKind::kText,
                               .text = std::move(fields_[i])};
    }
    return true;
  }

  double Progress() const override {
    const std::streamoff at = file_.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in);
    return size_ <= 0 || at < 0 ? 1.0 : static_cast<double>(at) / static_cast<double>(size_);
  }

 private:
  /// The beginning of the text, to the end of a line.
  std::string Sample() {
    text_.clear();
    text_.seekg(0);
    std::string sample(kSample, '\0');
    text_.read(sample.data(), kSample);
    sample.resize(static_cast<std::size_t>(text_.gcount()));
    const std::size_t lineEnd = sample.rfind('\n');
    if (sample.size() == kSample && lineEnd != std::string::npos) sample.resize(lineEnd + 1);
    return sample;
  }

  mutable std::ifstream file_;
  std::unique_ptr<Utf16Buffer> decoded_;
  std::istream text_{nullptr};
  CsvShape shape_;
  CsvReader reader_{text_, shape_};
  std::streamoff size_ = 0;
  TableFacts facts_;
  std::vector<SheetInfo> sheets_;
  std::vector<bool> hidden_;
  std::vector<std::string> fields_;
};

}  // namespace

char DetectSeparator(const std::string& sample) {
  char best = ';';
  int most = 0;
  for (char candidate : {';', '\t', '|', ',', '^', '~'}) {
    const int rows = RowsAlike(sample, candidate);
    if (rows > most) {
      best = candidate;
      most = rows;
    }
  }
  return best;
}

std::unique_ptr<TableReader> OpenTextTable(const std::string& file, const TableOptions& options) {
  return std::make_unique<TextTable>(file, options);
}

std::string NameOf(TextEncoding encoding) {
  switch (encoding) {
    case TextEncoding::kUtf8:
      return "UTF-8";
    case TextEncoding::kUtf16LittleEndian:
      return "UTF-16 (LE)";
    case TextEncoding::kUtf16BigEndian:
      return "UTF-16 (BE)";
    case TextEncoding::kWindows1252:
      return "Windows-1252";
  }
  return "";
}

}  // namespace exchange
