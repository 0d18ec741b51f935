#pragma once

#include <string>
#include <vector>

#include "history/reader.h"

namespace history {

/// A value that somebody stored after it was read here, and that was written over.
struct Overwritten {
  const tsql::Table* table = nullptr;
  Image row;               // with its key
  std::size_t column = 0;  // of the table
  platform::Variant theirs;
  platform::Variant ours;
  Operation by;  // who had stored it, and when
};

/// The values that an operation wrote over although somebody had changed them since the history stood at
/// `since`: what was read then was no longer so. Figures that are computed don't count.
std::vector<Overwritten> OverwrittenBy(KeepingStore& store, long operation, long since);
/// Stores their value again, as an operation of its own.
void PutBack(KeepingStore& store, const Overwritten& value);

}  // namespace history
