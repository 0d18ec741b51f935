#pragma once

#include <string>
#include <vector>

#include "desktop/list/list_catalog.h"

namespace desktop {

class ListPage;

/// The rows of a list that a command works on.
struct MarkedRows {
  const ListEntry& list;
  std::vector<std::string> keys;  // what `list.keyColumn` holds; the current row's first
  std::string plate;              // of the current row; empty in a list without plates
};

/// A command of the window's own on the rows of lists: it stands in the rows' menu and under "Registo", and
/// its key works while the list has the keyboard.
struct RowEntry {
  const char* text;      // "&Evolução…"
  const char* shortcut;  // "Ctrl+H"; empty for none
  bool (*suits)(const ListEntry& list);
  /// A row is chosen when it runs. Errors are shown by the page.
  void (*run)(ListPage& page, const MarkedRows& rows);
  const char* writes = nullptr;  // the table that it changes; null for none
};

/// All of them in their order, see `shell/row_entries.cpp`.
const std::vector<RowEntry>& RowEntries();

}  // namespace desktop
