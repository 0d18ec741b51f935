#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/data_access.h"
#include "platform/screen/form.h"
#include "reports/carregar.h"

namespace entry {

/// An expense as it stands on a ficha, in plain values.
struct ExpenseDraft {
  std::int32_t id = 0;  // -1 for one that has none yet
  platform::Date date;
  std::string plate, type, driver;
  platform::Currency quantity, cost, price, km;

  friend bool operator==(const ExpenseDraft&, const ExpenseDraft&) = default;
};

/// Nothing while the record is not complete enough to be judged, and for any other ficha.
std::optional<ExpenseDraft> DraftOn(const platform::Form& form);

/// What the fleet did in the months before a day: what an expense of that day is judged by. Holds nothing of
/// the database once it is read.
class ExpensePast {
 public:
  ExpensePast(const zorCrmParvel::DataAccessRef& bd, platform::Date day);

  platform::Date day() const { return day_; }
  /// What is odd about an expense, by the rules that find exceptions; in words, in the order of the rules.
  std::vector<std::string> Warnings(const ExpenseDraft& draft) const;

 private:
  platform::Date day_;
  reports::Frota fleet_;
  reports::Ajustes rules_;
};

}  // namespace entry
