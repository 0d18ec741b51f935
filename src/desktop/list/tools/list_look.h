#pragma once

#include <QString>

#include "lists/views.h"

namespace desktop {

class TableView;

/// How a table is shown now.
lists::ListLook LookOf(const TableView& table);
/// Shows it so. Columns that there aren't any more, and filters that can't be read, are left out.
void ApplyLook(TableView& table, const lists::ListLook& look);
/// Brings the fields under the headings in step with what filters.
void ShowFilters(TableView& table);
/// What keeps rows away: "Só «renault» · Data: este mês". Empty when nothing does.
QString FiltersInWords(const TableView& table);

}  // namespace desktop
