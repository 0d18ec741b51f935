#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "due/handled.h"
#include "exchange/calendar_file.h"
#include "host/data_access.h"
#include "platform/date.h"
#include "platform/screen/grid.h"

namespace notice {

/// A column of days from today in an alert list, and what they count to.
struct Term {
  const char* column;
  const char* name;
};

/// What is known of an alert list beside the list itself.
struct AlertFamily {
  const char* word;  // in calls: "apolices"
  const char* list;  // key: "AlertasAp"
  std::vector<Term> terms;
  std::vector<const char*> identity;  // columns that tell one thing from another
  std::vector<const char*> summary;   // columns for the eye
  const char* plate = nullptr;        // column of the vehicle's plate; null for drivers' dates
  const char* driver = nullptr;       // column of the driver's code
  const char* kilometres = nullptr;   // column of the kilometres that are left, where these decide as well
};
const std::vector<AlertFamily>& AlertFamilies();

/// Something that is due: on a day or, for some revisions, at a number of kilometres.
struct DueDate {
  std::string uid;    // the same for the same date of the same thing, whenever it is asked for
  std::string thing;  // the same for the thing, whatever its date
  const AlertFamily* family = nullptr;
  std::optional<std::int32_t> days;  // from today, negative when past; none where kilometres decide
  platform::Date day;                // the zero date where kilometres decide
  std::int32_t kilometres = 0;       // that are left, negative when past, where they decide
  std::string summary;               // "Apólice: 1234 10-GJ-10"
  std::string notes;                 // each on a line
  std::string plate;                 // empty for a driver's
  std::string driver;                // his code; empty for a vehicle's
  bool handled = false;              // somebody has dealt with it or put it off

  bool Overdue() const { return days.value_or(kilometres) < 0; }
};

/// What stands in the grid of an alert list that has been started and is due within so many days. One date of
/// one thing is one entry, with all that there is to say. It is dealt with when all its rows are.
std::vector<DueDate> DueDatesIn(const AlertFamily& family, const platform::SGGrid& grid, std::int32_t within,
                                const due::Handlings& handlings = {});

/// The same of all alert lists of a database, the most urgent first. A failure of a list goes to the caller.
std::vector<DueDate> DueDatesOf(const zorCrmParvel::DataAccessRef& bd, std::int32_t within);

/// The dates as entries of a calendar, by their identifiers; what kilometres decide has no day and is left
/// out.
std::vector<exchange::CalendarEntry> CalendarOf(const std::vector<DueDate>& dates);

}  // namespace notice
