#pragma once

#include <cstddef>
#include <memory>

namespace platform {

/// Gives a block back for the next one to take.
struct MemoryBlockKeeper {
  void operator()(std::byte* block) const noexcept;
};

/// `kMemoryBlock` bytes, aligned for anything, with whatever they held before.
using MemoryBlock = std::unique_ptr<std::byte[], MemoryBlockKeeper>;
inline constexpr std::size_t kMemoryBlock = 65536;

/// A block that was given back or, when there is none, a new one. Memory that is new to the process costs
/// more than all that a recordset writes into it, so up to 16 MB wait for the next recordset. For any thread.
MemoryBlock TakeMemoryBlock();

}  // namespace platform
