#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "history/keeping_store.h"
#include "history/settings.h"

namespace history {

/// What the history holds.
struct Size {
  long operations = 0;
  long rows = 0;
  long documents = 0;
  std::optional<platform::Date> oldest;
};
Size SizeOf(KeepingStore& store);
/// The tables that the history takes up.
const std::vector<std::string>& OwnTables();
/// "12 345 operações desde 03-02-2024; 17 documentos removidos que ainda se podem repor".
std::string ShownSize(const Size& size);

/// Forgets the bytes of documents and photos that no operation from a number on took away; how many they
/// were.
long ForgetUnneededDocuments(KeepingStore& store, long from = 0);

struct Cleared {
  long operations = 0;
  long documents = 0;
};

/// Forgets the operations before a day, for good, and the bytes of documents and photos that none of those
/// that stay needs. With `documentsOnly` the operations stay, and only the bytes that those before the day
/// took away go: undoing such a removal is refused then. Errors as the database's.
Cleared ClearBefore(KeepingStore& store, platform::Date day, bool documentsOnly = false);
/// Forgets what is older than the office keeps: documents' bytes first, then operations.
Cleared KeepWithin(KeepingStore& store, const Settings& settings, platform::Date today);

}  // namespace history
