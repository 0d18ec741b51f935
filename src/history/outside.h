#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "history/keeping_store.h"

namespace history {

/// Takes back what was written past the history and stands under a key of a table: an import under its
/// number. `beforeCommit` is called with what it is called, within the batch that takes it back. Gives back
/// what had to stay, a line each.
using OutsideUndoing = std::function<std::vector<std::string>(
    const std::shared_ptr<zorCrmParvel::Store>& inner, const std::string& key,
    const std::function<void(const std::string& words)>& beforeCommit)>;

/// Hosts say how what is noted under a table (see `KeepingStore::Note`) is undone.
void SetUndoing(const std::string& table, OutsideUndoing undoing);

/// Notes, in the history of a database that is open here, what is written past it, or that it was taken back:
/// see `KeepingStore::Note`.
void NoteIn(const zorCrmParvel::Store& database, const std::string& words, const std::string& table,
            const std::string& key);
void NoteUndoneIn(const zorCrmParvel::Store& database, const std::string& words, const std::string& table,
                  const std::string& key);

/// What an operation noted.
struct Noted {
  std::string table;
  std::string key;
};
/// Nothing when the operation recorded rows.
std::optional<Noted> NotedBy(KeepingStore& store, long operation);
/// The newest operation that noted it and undid nothing; 0: none.
long OperationThatNoted(KeepingStore& store, const std::string& table, const std::string& key);
/// Takes back what an operation noted. Error 5 when nobody knows how.
std::vector<std::string> UndoNoted(KeepingStore& store, const Noted& noted);

}  // namespace history
