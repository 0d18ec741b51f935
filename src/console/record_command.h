#pragma once

#include <iosfwd>
#include <string>

#include "host/data_access.h"

namespace console {

/// Prints a vehicle with its events of all seven kinds, newest first: what has a value as "name: value" and a
/// table for each kind, or one JSON object. False, and nothing printed, when the plate is unknown.
bool PrintVehicle(const zorCrmParvel::DataAccessRef& bd, const std::string& plate, bool json,
                  std::ostream& out);

/// Prints a driver with the licence classes and the expenses, fines and accidents of all vehicles that name
/// the driver; otherwise as `PrintVehicle`.
bool PrintDriver(const zorCrmParvel::DataAccessRef& bd, const std::string& code, bool json,
                 std::ostream& out);

}  // namespace console
