#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace exchange {

/// A little-endian number at a place among bytes; 0 beyond their end.
std::uint32_t NumberAt(std::string_view bytes, std::size_t at, std::size_t size);

/// The compound file in which older office programs keep their streams, whole in memory. Throws
/// std::runtime_error where its chains lead nowhere.
class OleFile {
 public:
  explicit OleFile(std::string bytes);

  bool Has(std::string_view name) const;
  /// The bytes of a stream; throws when there is none. Names are ASCII.
  std::string Stream(std::string_view name) const;

 private:
  struct Entry {
    std::string name;
    std::uint32_t first = 0;
    std::uint64_t size = 0;
  };

  std::string_view Sector(std::uint32_t number) const;
  /// The sectors that follow one another from `first` on.
  std::string Chain(std::uint32_t first) const;
  void ReadTable();
  void ReadDirectory();

  std::string bytes_;
  std::size_t sectorSize_ = 0;
  std::vector<std::uint32_t> next_;  // of each sector
  std::vector<Entry> entries_;
  std::string small_;       // the stream that holds the small ones
  std::string smallTable_;  // of each of its parts, the next
};

}  // namespace exchange
