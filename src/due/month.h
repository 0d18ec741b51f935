#pragma once

#include <string>
#include <vector>

#include "host/data_access.h"
#include "platform/date.h"

namespace due {

/// Something that is due on a day.
struct DueDate {
  platform::Date day;
  std::string what;     // "Apólice", "Inspecção"
  std::string record;   // the plate, or the driver's name
  std::string code;     // of the record that it is about
  bool driver = false;  // the record is a driver, and not a vehicle
};

/// All that is due from a day to another, both in, by day and record: ends of policies that are active, next
/// revisions and inspections, accessories, stamps, leasing contracts and tachographs of vehicles in service;
/// documents of active drivers. One statement a kind, whatever the fleet.
std::vector<DueDate> DueBetween(const zorCrmParvel::DataAccessRef& bd, platform::Date from,
                                platform::Date to);

}  // namespace due
