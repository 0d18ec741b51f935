#pragma once

#include <iosfwd>
#include <string>

#include "host/data_access.h"

namespace console {

struct AlertsOptions {
  bool json = false;
  std::string family = {};    // one family alone, by its word; empty for all six
  std::string calendar = {};  // file for the calendar of due dates; empty for none
};

/// The words that `AlertsOptions::family` takes, for help texts.
std::string AlertFamilyNames();
bool IsAlertFamily(const std::string& name);

/// Prints the alert lists in one answer: a table each, or one JSON object with a member each. A list that
/// fails is told on `err` and the others go on. Exit codes: `kDone` when nothing is due, `kDue` when
/// something is, `kFailed` when a list failed. Error 75 when the calendar can't be written.
int PrintAlerts(const zorCrmParvel::DataAccessRef& bd, const AlertsOptions& options, std::ostream& out,
                std::ostream& err);

}  // namespace console
