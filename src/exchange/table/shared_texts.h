#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace exchange {

/// The texts that the cells of a workbook share, one behind the other.
class SharedTexts {
 public:
  void Add(std::string_view text);
  /// Nothing is there for a number that none has.
  std::string_view At(std::size_t number) const;

 private:
  std::string all_;
  std::vector<std::uint32_t> ends_;
};

}  // namespace exchange
