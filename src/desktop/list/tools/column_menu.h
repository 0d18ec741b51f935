#pragma once

#include <functional>

class QMenu;

namespace desktop {

class TableView;

/// Fills a menu with what can be done to a table's columns: which are shown, and for the one under the cursor
/// (-1 for none) its place, hiding it and grouping by it. `changed` is told after a change.
void FillColumnMenu(QMenu& menu, TableView& table, int section, const std::function<void()>& changed);

}  // namespace desktop
