#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/data_access.h"

namespace entry {

/// A field that can be set on many vehicles at once.
enum class VehicleField { kDepartment, kResponsible, kInactive };

struct VehicleValue {
  std::string plate;
  std::string value;  // of kInactive "1" or "0"
};

/// What the vehicles hold in a field; those that are gone are left out.
std::vector<VehicleValue> ValuesOf(const zorCrmParvel::DataAccessRef& bd,
                                   const std::vector<std::string>& plates, VehicleField field);
/// Sets the field of those that differ, as their ficha would, and gives back how many they were. Error 5 for
/// a department that there isn't, and for a name that is too long: then nothing is written.
std::size_t SetField(const zorCrmParvel::DataAccessRef& bd, const std::vector<VehicleValue>& vehicles,
                     VehicleField field, const std::string& value);
/// The codes of departments with their names.
std::vector<std::pair<std::string, std::string>> Departments(const zorCrmParvel::DataAccessRef& bd);

}  // namespace entry
