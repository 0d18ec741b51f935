#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace exchange {

/// The packed cells of many rows: the first megabytes in memory, the rest in a temporary file that nobody
/// else can open and that goes with the store.
class CellStore {
 public:
  static constexpr std::size_t kInMemory = std::size_t{16} << 20;  // bytes
  /// Less memory is for tests.
  explicit CellStore(std::size_t inMemory = kInMemory) : inMemory_(inMemory) {}

  /// Keeps a row's cells and says where. Throws std::runtime_error when there is no room for them.
  std::uint64_t Add(std::string_view packed);
  /// The cells that were kept there, until the next call.
  std::string_view At(std::uint64_t place) const;

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void Spill(std::string_view bytes);
  std::string_view InFile(std::uint64_t begin, std::size_t size) const;

  std::size_t inMemory_;
  std::string memory_;
  std::unique_ptr<std::FILE, Closer> file_;
  std::uint64_t written_ = 0;     // bytes in the file
  mutable std::string window_;    // a piece of the file
  mutable std::uint64_t at_ = 0;  // where the piece begins
};

}  // namespace exchange
