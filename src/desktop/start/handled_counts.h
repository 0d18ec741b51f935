#pragma once

#include "desktop/list/list_catalog.h"
#include "host/sistema.h"

namespace desktop {

/// How many rows of a list of alerts are dealt with or put off. The list is read only when some are.
long HandledNow(zorCrmParvel::Sistema& sistema, const ListEntry& entry);

}  // namespace desktop
