#pragma once

#include <QString>
#include <cstddef>
#include <set>

#include "lists/views.h"

namespace desktop {

class TableView;

/// How a table is shown now.
lists::ListLook LookOf(const TableView& table);
/// Shows it so. Columns that there aren't any more, and filters that can't be read, are left out.
void ApplyLook(TableView& table, const lists::ListLook& look);
/// Brings the fields under the headings in step with what filters.
void ShowFilters(TableView& table);
/// What keeps rows away: "Só «renault» · Data: este mês". Empty when nothing does, or only filters of
/// the columns `told` elsewhere.
QString FiltersInWords(const TableView& table, const std::set<std::size_t>& told = {});

}  // namespace desktop
