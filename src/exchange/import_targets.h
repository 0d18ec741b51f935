#pragma once

#include "exchange/import.h"

namespace exchange {

// One target a kind of file. Each writes through the entities of the module, on the database given, which it
// holds on to; what it refuses, it refuses by the rules of the fields of the ficha.
std::unique_ptr<ImportTarget> MakeExpenseImport(const zorCrmParvel::DataAccessRef& bd);
std::unique_ptr<ImportTarget> MakeVehicleImport(const zorCrmParvel::DataAccessRef& bd);
std::unique_ptr<ImportTarget> MakeDriverImport(const zorCrmParvel::DataAccessRef& bd);
std::unique_ptr<ImportTarget> MakePolicyImport(const zorCrmParvel::DataAccessRef& bd);
std::unique_ptr<ImportTarget> MakeRevisionImport(const zorCrmParvel::DataAccessRef& bd);
std::unique_ptr<ImportTarget> MakeInspectionImport(const zorCrmParvel::DataAccessRef& bd);
std::unique_ptr<ImportTarget> MakeFineImport(const zorCrmParvel::DataAccessRef& bd);
std::unique_ptr<ImportTarget> MakeAccidentImport(const zorCrmParvel::DataAccessRef& bd);
std::unique_ptr<ImportTarget> MakeAccessoryImport(const zorCrmParvel::DataAccessRef& bd);
std::unique_ptr<ImportTarget> MakeLicenceImport(const zorCrmParvel::DataAccessRef& bd);
/// One of the ten code tables by its name; null for another name.
std::unique_ptr<ImportTarget> MakeCodeImport(const std::string& what, const zorCrmParvel::DataAccessRef& bd);

}  // namespace exchange
