#pragma once

#include <string>

#include "host/data_access.h"
#include "platform/date.h"

/// Records that many tests begin with, written through the entities.
namespace testing_support {

/// A make, a vehicle of it with its initial figures.
void AddVehicle(const zorCrmParvel::DataAccessRef& bd, const std::string& plate, int kmInicial = 0,
                int qtdInicial = 0);
void AddDriver(const zorCrmParvel::DataAccessRef& bd, const std::string& code, const std::string& name);
/// The types GASOLEO (a fuel at 1,659) and PORTAGEM (no fuel).
void AddExpenseTypes(const zorCrmParvel::DataAccessRef& bd);
/// An expense with driver 1; the type's own rules aren't applied.
void AddExpense(const zorCrmParvel::DataAccessRef& bd, const std::string& plate, platform::Date date,
                const std::string& type, const std::string& quantity, const std::string& cost, int km);

}  // namespace testing_support
