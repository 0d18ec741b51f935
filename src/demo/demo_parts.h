#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/data_access.h"
#include "vehicles/viaturas.h"

namespace demo {

/// A source of numbers that gives the same demonstration fleet on every machine.
class DemoDice {
 public:
  /// From `least` to `most`, both included.
  int Roll(int least, int most) {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return least + static_cast<int>((state_ >> 33) % static_cast<std::uint64_t>(most - least + 1));
  }
  template <typename Container>
  const auto& Pick(const Container& items) {
    return items[static_cast<std::size_t>(Roll(0, static_cast<int>(std::size(items)) - 1))];
  }

 private:
  std::uint64_t state_ = 20241124;
};

void FillDemoTables(const zorCrmParvel::DataAccessRef& bd);
/// What reports have to know of expense types and fuels: units, kg of CO2, what a fuel takes.
void FillDemoSettings(const zorCrmParvel::DataAccessRef& bd);
/// The same of a vehicle: its tank, the day on which it went out of service, the kilometres of its leasing.
void WriteForReports(const zorCrmParvel::clViaturas& vehicle, int tank, int kmPerDay);
/// Codes of the drivers written.
std::vector<std::string> FillDemoDrivers(const zorCrmParvel::DataAccessRef& bd, DemoDice& dice);
/// Vehicles with three years of expenses each, and their figures.
void FillDemoFleet(const zorCrmParvel::DataAccessRef& bd, const std::vector<std::string>& drivers,
                   DemoDice& dice);

/// The other events of every vehicle that there is, spread around today so that something is always due.
void FillDemoEvents(const zorCrmParvel::DataAccessRef& bd, const std::vector<std::string>& drivers,
                    DemoDice& dice);

}  // namespace demo
