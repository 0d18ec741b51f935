#pragma once

#include "console/import.h"

namespace console {

std::unique_ptr<ImportTarget> MakeExpenseImport(const zorCrmParvel::DataAccessRef& bd);
std::unique_ptr<ImportTarget> MakeVehicleImport(const zorCrmParvel::DataAccessRef& bd);
std::unique_ptr<ImportTarget> MakeDriverImport(const zorCrmParvel::DataAccessRef& bd);

}  // namespace console
