#pragma once

#include "events/gastos_form.h"

namespace entry {

/// The fields of the expense's ficha, by their places.
enum ExpenseField : int { kPlate = 0, kDriver = 2, kType = 4, kQuantity = 5, kCost = 6, kPrice = 7, kKm = 8 };

}  // namespace entry
