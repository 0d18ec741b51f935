#include "exchange/table/ole_file.h"

#include <algorithm>
#include <utility>

#include "exchange/table/limits.h"

namespace exchange {
namespace {

constexpr std::size_t kHeaderSize = 512;
constexpr std::size_t kEntrySize = 128;
constexpr std::size_t kSmallPart = 64;
constexpr std::uint64_t kSmallStream = 4096;       // streams below that size lie in parts
constexpr std::uint32_t kLastNumber = 0xFFFFFFFA;  // those above mean free, end, or the table itself
constexpr std::size_t kTableInHeader = 109;

std::runtime_error BrokenChain() { return BrokenFile("as suas partes não se seguem umas às outras"); }

}  // namespace

std::uint32_t NumberAt(std::string_view bytes, std::size_t at, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < size && at + i < bytes.size(); ++i)
    number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
  return number;
}

OleFile::OleFile(std::string bytes) : bytes_(std::move(bytes)) {
  const std::uint32_t shift = NumberAt(bytes_, 30, 2);
  if (bytes_.size() < kHeaderSize || (shift != 9 && shift != 12))
    throw BrokenFile("o seu cabeçalho não está inteiro");
  sectorSize_ = std::size_t{1} << shift;
  ReadTable();
  ReadDirectory();
}

std::string_view OleFile::Sector(std::uint32_t number) const {
  const std::size_t begin = (static_cast<std::size_t>(number) + 1) * sectorSize_;
  if (begin >= bytes_.size()) throw BrokenFile("acaba antes do fim dos seus dados");
  return std::string_view(bytes_).substr(begin, sectorSize_);
}

void OleFile::ReadTable() {
  std::vector<std::uint32_t> parts;
  for (std::size_t i = 0; i < kTableInHeader; ++i) parts.push_back(NumberAt(bytes_, 76 + 4 * i, 4));
  std::size_t left = bytes_.size() / sectorSize_ + 1;
  for (std::uint32_t more = NumberAt(bytes_, 68, 4); more < kLastNumber && left > 0; --left) {
    const std::string_view sector = Sector(more);
    for (std::size_t i = 0; i + 4 < sectorSize_; i += 4) parts.push_back(NumberAt(sector, i, 4));
    more = NumberAt(sector, sectorSize_ - 4, 4);
  }
  const std::size_t most = bytes_.size() / sectorSize_ + sectorSize_;
  for (std::uint32_t part : parts) {
    if (part >= kLastNumber || next_.size() > most) continue;
    const std::string_view sector = Sector(part);
    for (std::size_t i = 0; i < sectorSize_; i += 4) next_.push_back(NumberAt(sector, i, 4));
  }
}

std::string OleFile::Chain(std::uint32_t first) const {
  std::string all;
  for (std::uint32_t number = first; number < kLastNumber; number = next_[number]) {
    all += Sector(number);
    if (number >= next_.size() || all.size() > bytes_.size()) throw BrokenChain();
  }
  return all;
}

void OleFile::ReadDirectory() {
  const std::string directory = Chain(NumberAt(bytes_, 48, 4));
  for (std::size_t at = 0; at + kEntrySize <= directory.size(); at += kEntrySize) {
    const std::string_view entry = std::string_view(directory).substr(at, kEntrySize);
    std::string name;
    const std::size_t length = std::min<std::size_t>(NumberAt(entry, 64, 2), 64);
    for (std::size_t i = 0; i + 2 < length; i += 2) name += entry[i + 1] == 0 ? entry[i] : '?';
    entries_.push_back({std::move(name), NumberAt(entry, 116, 4), NumberAt(entry, 120, 4)});
  }
  if (entries_.empty()) throw BrokenFile("falta-lhe o índice");
  if (entries_[0].first < kLastNumber && entries_[0].size > 0) small_ = Chain(entries_[0].first);
  const std::uint32_t table = NumberAt(bytes_, 60, 4);
  if (table < kLastNumber) smallTable_ = Chain(table);
}

bool OleFile::Has(std::string_view name) const {
  return std::any_of(entries_.begin(), entries_.end(), [&](const Entry& e) { return e.name == name; });
}

std::string OleFile::Stream(std::string_view name) const {
  const auto entry =
      std::find_if(entries_.begin(), entries_.end(), [&](const Entry& e) { return e.name == name; });
  if (entry == entries_.end()) throw BrokenFile("falta-lhe a parte \"" + std::string(name) + "\"");
  std::string all;
  if (entry->size >= kSmallStream) {
    all = Chain(entry->first);
  } else {
    for (std::uint32_t part = entry->first; part < kLastNumber && all.size() < entry->size;
         part = NumberAt(smallTable_, std::size_t{part} * 4, 4)) {
      const std::size_t begin = std::size_t{part} * kSmallPart;
      if (begin >= small_.size()) throw BrokenChain();
      all += std::string_view(small_).substr(begin, kSmallPart);
    }
  }
  if (all.size() < entry->size) throw BrokenFile("acaba antes do fim dos seus dados");
  all.resize(entry->size);
  return all;
}

}  // namespace exchange
