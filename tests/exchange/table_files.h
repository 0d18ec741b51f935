#pragma once

#include <zip.h>

#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "exchange/table/table_reader.h"
#include "support/temporary_folder.h"

namespace exchange {

/// A folder of files for one test, removed with it.
class TableFiles {
 public:
  std::string Path(const std::string& name) const { return folder_.File(name); }
  std::string Put(const std::string& name, const std::string& content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
    return Path(name);
  }
  /// An archive of parts, each its name and content.
  std::string Zip(const std::string& name,
                  const std::vector<std::pair<std::string, std::string>>& parts) const {
    zip_t* archive = zip_open(Path(name).c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    for (const auto& [part, content] : parts)
      zip_file_add(archive, part.c_str(), zip_source_buffer(archive, content.data(), content.size(), 0), 0);
    if (zip_close(archive) != 0) throw std::runtime_error("zip");
    return Path(name);
  }

 private:
  testing_support::TemporaryFolder folder_;
};

/// The content of an ODS document of these tables.
inline std::string Spreadsheet(const std::string& tables) {
  return R"(<d xmlns:office="urn:x:office:1.0" xmlns:table="urn:x:table:1.0" xmlns:text="urn:x:text:1.0"
 xmlns:calcext="urn:y:calc:calcext:1.0"><office:spreadsheet>)" +
         tables + "</office:spreadsheet></d>";
}

/// All rows of the open sheet, a line each: "3h: text|n4.5|d01-07-2026|b1|!#N/A|?|f=…", with the line's
/// number, h where it is hidden, and before each cell what it is (texts without).
inline std::string Dump(TableReader& table) {
  std::string all;
  for (TableRow row; table.Next(row);) {
    all += std::to_string(row.line) + (row.hidden ? "h:" : ":");
    for (const TableCell& cell : row.cells) {
      static constexpr const char* kMarks[] = {"", "", "n", "d", "b", "!", "?"};
      all += (cell.formula ? "f=" : "") + std::string(kMarks[static_cast<int>(cell.kind)]) + cell.text + "|";
    }
    all += "\n";
  }
  return all;
}

/// What the reader says of a file that it refuses; empty when it takes it to its end.
inline std::string RefusalOf(const std::string& file) {
  try {
    const auto table = OpenTable(file);
    Dump(*table);
  } catch (const std::runtime_error& e) {
    return e.what();
  }
  return "";
}

}  // namespace exchange
