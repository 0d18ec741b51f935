#pragma once

#include <vector>

namespace desktop {

/// One list of the program, as the window offers it.
struct ListEntry {
  const char* group;  // heading at the side
  const char* key;    // of the module
  const char* title;
  const char* keyColumn;  // tells the records apart
  const char* ficha;      // null for lists that have none of their own
};

/// All lists in the order of the sidebar, whether the module has them yet or not.
const std::vector<ListEntry>& AllLists();
/// Null when there is no such key.
const ListEntry* FindList(const char* key);
/// True for the lists of what is due.
bool IsAlertList(const ListEntry& entry);

/// True for the lists of what happens to vehicles.
bool IsEventList(const ListEntry& entry);

/// The start page's place among the keys of the lists.
inline constexpr char kStartPage[] = "Inicio";

}  // namespace desktop
