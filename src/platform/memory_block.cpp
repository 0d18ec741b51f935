#include "platform/memory_block.h"

#include <mutex>
#include <vector>

namespace platform {
namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t kMostKept = 0;  // a cell that is used after its recordset has gone is found
#else
constexpr std::size_t kMostKept = (std::size_t{16} << 20) / kMemoryBlock;
#endif

struct Pool {
  Pool() { blocks.reserve(kMostKept); }

  std::mutex mutex;
  std::vector<std::unique_ptr<std::byte[]>> blocks;
};

/// Stays until the process ends: recordsets may live as long.
Pool& ThePool() {
  static Pool* const pool = new Pool;
  return *pool;
}

}  // namespace

MemoryBlock TakeMemoryBlock() {
  Pool& pool = ThePool();
  {
    const std::lock_guard lock(pool.mutex);
    if (!pool.blocks.empty()) {
      MemoryBlock block(pool.blocks.back().release());
      pool.blocks.pop_back();
      return block;
    }
  }
  return MemoryBlock(std::make_unique_for_overwrite<std::byte[]>(kMemoryBlock).release());
}

void MemoryBlockKeeper::operator()(std::byte* block) const noexcept {
  std::unique_ptr<std::byte[]> given(block);
  Pool& pool = ThePool();
  const std::lock_guard lock(pool.mutex);
  if (pool.blocks.size() < kMostKept) pool.blocks.push_back(std::move(given));
}

}  // namespace platform
