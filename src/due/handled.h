#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/data_access.h"
#include "platform/date.h"

namespace due {

/// What was done about an alert: it is dealt with, or put off until a day.
struct Handling {
  std::optional<platform::Date> until;  // nothing: for good, as long as it is due by the same date
  std::string note;
  std::string who;
  platform::Date when;

  /// "Adiado até 10-12-2026: à espera da oficina", "Tratado".
  std::string Words() const;
};

/// By what an alert is of, see `AlertOf`.
using Handlings = std::map<std::string, Handling>;

/// The columns by which a list of alerts tells one from another, its date among them: when the date changes
/// it is another alert. None for a list of something else.
const std::vector<const char*>& AlertColumns(const std::string& list);
/// What an alert is of, from the texts of these columns.
std::string AlertOf(const std::vector<std::string>& texts);

/// What was done about alerts of a list and still holds on a day. None in a database that has no table for
/// it.
Handlings HandlingsOf(const zorCrmParvel::DataAccessRef& bd, const std::string& list, platform::Date today);
/// Keeps what was done about an alert, in the place of what was done before. Error 5 for a note that is too
/// long, and for a day that is not to come.
void Handle(const zorCrmParvel::DataAccessRef& bd, const std::string& list, const std::string& alert,
            const Handling& handling);
/// The alert is open again.
void Reopen(const zorCrmParvel::DataAccessRef& bd, const std::string& list, const std::string& alert);

}  // namespace due
