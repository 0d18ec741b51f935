#pragma once

#include <set>

#include "host/data_access.h"

namespace setup {

/// What a new office does first, in this order.
enum class Step { kCodes, kVehicles, kDrivers, kFill, kDueDates };

/// The steps that are done: there are expense types with fuels, vehicles, drivers, expenses, and policies or
/// inspections. One statement, which reads a row of each table.
std::set<Step> StepsDone(const zorCrmParvel::DataAccessRef& bd);

}  // namespace setup
