#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/data_access.h"
#include "platform/screen/form.h"

namespace entry {

/// A date of a ficha that its record is without, and that stands on the screen as today: so it would be
/// stored.
struct UnsetDate {
  platform::DTPicker* picker;
  std::string caption;
};

/// The record of a vehicle's or driver's ficha.
struct DatedRecord {
  bool driver = false;
  std::string key;

  friend bool operator==(const DatedRecord&, const DatedRecord&) = default;
};

/// Nothing while no record is shown, and for any other ficha.
std::optional<DatedRecord> DatedRecordOn(const platform::Form& form);
/// What is stored of a record's dates.
struct StoredDates {
  bool is_new = false;     // a vehicle that isn't in the fleet yet
  std::vector<int> empty;  // places on the ficha of those that may be missing, and are
};
StoredDates StoredDatesOf(const zorCrmParvel::DataAccessRef& bd, const DatedRecord& record);
/// The missing ones that stand on the ficha as today.
std::vector<UnsetDate> UnsetDatesOn(platform::Form& form, const StoredDates& stored);
/// Whether a new vehicle would be stored as registered today, from which its next inspection and stamp are
/// told.
bool RegistersToday(const platform::Form& form, const StoredDates& stored);
/// Whether a vehicle's ficha tells no kilometres of its next revision, which then counts as overdue.
bool LacksRevision(const platform::Form& form);
/// Leaves dates empty, and a vehicle without a revision by kilometres, as an import does.
void LeaveWithout(platform::Form& form, const std::vector<UnsetDate>& dates);

}  // namespace entry
