#pragma once

#include <string>
#include <vector>

#include "history/keeping_store.h"

namespace history {

/// What stands in the way of an undo: somebody changed the row since.
struct Conflict {
  std::string table;
  std::string key;
  std::string column;   // empty: the whole row
  std::string now;      // as people read it
  std::string written;  // what the operation had written
  std::string before;   // what the undo would put back
};

/// What is in the way of undoing an operation; nothing when it can be undone as it is. Error 5 when there is
/// no such operation, or when it was undone already.
std::vector<Conflict> Conflicts(KeepingStore& store, long operation);

/// Puts back every row that the operation wrote, under its own number, and computes the figures of its
/// vehicles anew where others wrote them since. All of it or nothing; an operation of its own, whose number
/// is given back. Whatever is in the way is overwritten: ask before. Errors as of `Conflicts`, and
/// -2147467259 when the content of a document is no longer kept.
/// `kept` takes what had to stay of something with an undoing of its own, a line each.
long Undo(const std::shared_ptr<KeepingStore>& store, long operation,
          std::vector<std::string>* kept = nullptr);

}  // namespace history
