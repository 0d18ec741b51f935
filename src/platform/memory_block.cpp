#include "platform/memory_block.h"

#include <mutex>
#include <vector>

namespace platform {
namespace {

constexpr std::size_t kMostKept = (std::size_t{16} << 20) / kMemoryBlock;

// A sanitized build keeps the blocks as any other does, and is told which of them nobody may touch: so a cell
// that is used after its recordset has gone is found there.
#ifdef __SANITIZE_ADDRESS__
// NOLINTNEXTLINE(bugprone-reserved-identifier): the compiler's own names
extern "C" void __asan_poison_memory_region(const volatile void* begin, std::size_t size);
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" void __asan_unpoison_memory_region(const volatile void* begin, std::size_t size);
void Forbid(const std::byte* block) { __asan_poison_memory_region(block, kMemoryBlock); }
void Allow(const std::byte* block) { __asan_unpoison_memory_region(block, kMemoryBlock); }
#else
void Forbid(const std::byte*) {}
void Allow(const std::byte*) {}
#endif

/// What recordsets have given back. Reading 10,000 vehicles spent two thirds of its time on pages that were
/// new to the process, before blocks were kept.
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
      Allow(block.get());
      return block;
    }
  }
  return MemoryBlock(std::make_unique_for_overwrite<std::byte[]>(kMemoryBlock).release());
}

void MemoryBlockKeeper::operator()(std::byte* block) const noexcept {
  std::unique_ptr<std::byte[]> given(block);
  Pool& pool = ThePool();
  const std::lock_guard lock(pool.mutex);
  if (pool.blocks.size() == kMostKept) return;
  Forbid(given.get());
  pool.blocks.push_back(std::move(given));
}

}  // namespace platform
