#include "exchange/table/shared_texts.h"

namespace exchange {

void SharedTexts::Add(std::string_view text) {
  all_ += text;
  ends_.push_back(static_cast<std::uint32_t>(all_.size()));
}

std::string_view SharedTexts::At(std::size_t number) const {
  if (number >= ends_.size()) return {};
  const std::size_t begin = number == 0 ? 0 : ends_[number - 1];
  return std::string_view(all_).substr(begin, ends_[number] - begin);
}

}  // namespace exchange
