// Any bytes at all are read as a table to their end, or refused with an error for the operator; whatever else
// happens is a fault.

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>

#include "exchange/table/limits.h"
#include "exchange/table/table_reader.h"

namespace {

constexpr int kRows = 5000;

void Require(bool holds) {
  if (!holds) std::abort();
}

/// Bytes as a file without a disk.
class MemoryFile {
 public:
  MemoryFile(const std::uint8_t* data, std::size_t size) : descriptor_(memfd_create("tabela", 0)) {
    Require(descriptor_ >= 0 && write(descriptor_, data, size) == static_cast<ssize_t>(size));
  }
  ~MemoryFile() { close(descriptor_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  std::string Path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

void ReadThrough(const std::string& file) {
  const auto table = exchange::OpenTable(file);
  Require(!table->Sheets().empty());
  for (std::size_t sheet = 0; sheet < table->Sheets().size() && sheet < 3; ++sheet) {
    table->Open(sheet);
    long line = 0;
    exchange::TableRow row;
    for (int i = 0; i < kRows && table->Next(row); ++i) {
      Require(row.line >= 1 && (table->Facts().format != "CSV" || row.line > line));
      Require(table->Facts().format == "CSV" || row.cells.size() <= exchange::kColumnLimit);
      line = row.line;
    }
    const double progress = table->Progress();
    Require(progress >= 0 && progress <= 1);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const MemoryFile file(data, size);
  try {
    ReadThrough(file.Path());
  } catch (const std::runtime_error&) {
    // Refused, which is an answer.
  }
  return 0;
}
