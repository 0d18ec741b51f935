#pragma once

#include "desktop/list/list_page.h"

namespace desktop {

// The commands on rows of lists that the history offers.

/// True for a list whose rows are records.
bool HasLife(const ListEntry& list);
void ShowLife(ListPage& page, const MarkedRows& rows);

bool ListsDrivers(const ListEntry& list);
void ExportMarkedDriver(ListPage& page, const MarkedRows& rows);
void EraseMarkedDriver(ListPage& page, const MarkedRows& rows);
void ShowQuietDrivers(ListPage& page, const MarkedRows& rows);

}  // namespace desktop
