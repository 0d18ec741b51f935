#include "exchange/plan/cell_store.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace exchange {
namespace {

using Size = std::uint32_t;  // stands before each row

// Rows are mostly asked for in the file's order or the other way round.
constexpr std::uint64_t kBefore = 12288;
constexpr std::size_t kWindow = 24576;

}  // namespace

std::uint64_t CellStore::Add(std::string_view packed) {
  const auto size = static_cast<Size>(packed.size());
  char head[sizeof size];
  std::memcpy(head, &size, sizeof size);
  if (file_ == nullptr && memory_.size() + packed.size() <= inMemory_) {
    const std::uint64_t place = memory_.size();
    memory_.append(head, sizeof head).append(packed);
    return place;
  }
  if (file_ == nullptr) file_.reset(std::tmpfile());
  const std::uint64_t place = memory_.size() + written_;
  Spill({head, sizeof head});
  Spill(packed);
  return place;
}

void CellStore::Spill(std::string_view bytes) {
  if (file_ == nullptr || std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size())
    throw std::runtime_error(
        "O ficheiro é grande e não há espaço para o ler na pasta dos ficheiros temporários: liberte espaço "
        "no disco e repita.");
  written_ += bytes.size();
}

std::string_view CellStore::At(std::uint64_t place) const {
  Size size = 0;
  if (place < memory_.size()) {
    std::memcpy(&size, memory_.data() + place, sizeof size);
    return std::string_view(memory_).substr(place + sizeof size, size);
  }
  const std::uint64_t begin = place - memory_.size();
  std::memcpy(&size, InFile(begin, sizeof size).data(), sizeof size);
  return InFile(begin + sizeof size, size);
}

std::string_view CellStore::InFile(std::uint64_t begin, std::size_t size) const {
  if (begin < at_ || begin + size > at_ + window_.size()) {
    at_ = begin - std::min(begin, kBefore);
    window_.resize(std::max(kWindow, static_cast<std::size_t>(begin - at_) + size));
    std::fseek(file_.get(), static_cast<long>(at_), SEEK_SET);
    window_.resize(std::fread(window_.data(), 1, window_.size(), file_.get()));
    if (begin + size > at_ + window_.size())
      throw std::runtime_error("As linhas do ficheiro já não se conseguem ler da pasta temporária.");
  }
  return std::string_view(window_).substr(static_cast<std::size_t>(begin - at_), size);
}

}  // namespace exchange
