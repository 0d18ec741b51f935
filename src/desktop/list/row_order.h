#pragma once

#include "lists/row_order.h"

namespace desktop {

using lists::RowOrder;
using lists::SortBy;
using lists::SortDirection;

}  // namespace desktop
