#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "history/keeping_store.h"

namespace history {

/// What all writes of an operation made of one row.
struct Net {
  std::optional<Image> before;  // nothing: the operation put the row in
  std::optional<Image> after;   // nothing: it took the row away
};

/// Rows of one table in the order in which they were first written.
class Nets {
 public:
  struct Entry {
    std::string key;  // folded
    Net net;
  };
  /// The row with a key, and whether it is new here.
  std::pair<Net&, bool> Of(std::string key) {
    const auto [place, fresh] = places_.try_emplace(std::move(key), entries_.size());
    if (fresh) entries_.push_back({place->first, {}});
    return {entries_[place->second].net, fresh};
  }
  auto begin() const { return entries_.begin(); }
  auto end() const { return entries_.end(); }

 private:
  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::size_t> places_;
};
using NetsOfTables = std::vector<std::pair<const tsql::Table*, Nets>>;  // in the order of the writes

/// What an operation made of all its rows.
NetsOfTables NetOf(KeepingStore& store, long operation);

}  // namespace history
