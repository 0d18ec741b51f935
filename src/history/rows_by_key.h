#pragma once

#include <map>
#include <string>
#include <vector>

#include "history/keeping_store.h"

namespace history {

/// The rows of a table as they are now, by their folded keys; those that are gone are left out. Bytes are
/// read where the images that name the rows have them.
std::map<std::string, Image> RowsByKey(KeepingStore& store, const tsql::Table& table,
                                       const std::vector<const Image*>& keys);
/// Removes rows by their keys, as part of the act.
void DeleteRows(KeepingStore& store, const tsql::Table& table, const std::vector<const Image*>& keys);

}  // namespace history
