#pragma once

#include <string>
#include <vector>

#include "history/reader.h"

namespace history {

/// One change of a record's life.
struct Change {
  Operation operation;
  std::string words;  // "Km: 10 500 → 10 560"
};

/// The newest changes of one row, the newest first. `key` is its key as one text.
std::vector<Change> ReadLife(KeepingStore& store, const tsql::Table& table, const std::string& key,
                             int most = 500);
/// The differences of one row as people read them, a line each; of an empty side there was no row.
std::vector<std::string> Describe(const tsql::Table& table, const Image* before, const Image* after);
/// A value as people read it.
std::string Shown(const tsql::Column& column, const platform::Variant& value);

}  // namespace history
