#pragma once

#include "store/store.h"

namespace history {

/// What an office has settled about what is remembered.
struct Settings {
  bool records = true;    // whether changes are recorded at all
  int years = 5;          // how long an operation is kept; 0: for ever
  int documentYears = 2;  // how long the bytes of documents and photos that were removed are
  int driverYears = 5;    // after how many years without an event a driver is listed as inactive

  friend bool operator==(const Settings&, const Settings&) = default;
};

/// The settings of a database; what was never settled is as it comes. A database without the table has none.
Settings ReadSettings(const zorCrmParvel::DataAccessRef& bd);
/// Stores them for everybody who works on the database. Errors as the database's.
void WriteSettings(const zorCrmParvel::DataAccessRef& bd, const Settings& settings);

}  // namespace history
