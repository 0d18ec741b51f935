#pragma once

#include "host/data_access.h"
#include "tsql/catalog.h"

namespace testing_support {

/// The tables of the module, as the schema tells them.
const tsql::Catalog& Tables();

/// Three records of every code, vehicle and driver (A, B, C), four events of each kind, two of them of B. No
/// two columns of a row hold the same, and dates lie around 15-03-2024.
void AddSampleFleet(const zorCrmParvel::DataAccessRef& bd);

}  // namespace testing_support
