#pragma once

#include <string>
#include <vector>

#include "platform/screen/form.h"

namespace entry {

/// A date of a ficha that its record is without, and that stands on the screen as today: so it would be
/// stored.
struct UnsetDate {
  platform::DTPicker* picker;
  std::string caption;
};

/// The dates of a vehicle's or driver's ficha that may be without one. What the record holds is read when
/// another record is shown.
class UnsetDates {
 public:
  std::vector<UnsetDate> Of(platform::Form& form);
  /// Whether a new vehicle would be stored as registered today, from which its next inspection and stamp are
  /// told; to be asked after `Of`.
  bool RegistersToday(const platform::Form& form) const;
  /// Whether a vehicle's ficha tells no kilometres of its next revision, which then counts as overdue.
  static bool LacksRevision(const platform::Form& form);
  /// Leaves dates empty, and a vehicle without a revision by kilometres, as an import does.
  static void LeaveWithout(platform::Form& form, const std::vector<UnsetDate>& dates);
  void Forget() { known_ = false; }

 private:
  bool known_ = false;
  bool new_vehicle_ = false;
  std::string key_;
  std::vector<UnsetDate> empty_;  // of the record with this key
};

}  // namespace entry
