#pragma once

#include <exception>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "alerts/alert_counts.h"
#include "setup/first_steps.h"
#include "store/table_watch.h"

namespace desktop {

/// One part of what the board shows, found in one go: the rows of an alert list, the first steps that are
/// done, or what the module's feed says.
struct AlertPart {
  zorCrmParvel::ContagemDeAlertas counts;  // of a list
  bool has_very_soon = true;               // rows of the list can be in that band
  long handled = 0;                        // rows of the list that were dealt with, or put off
  std::set<setup::Step> steps;
  std::map<std::string, std::string> feed;  // text by family
  std::exception_ptr failure;               // then the others hold what was found before it
  store::TableNames tables;                 // that it was read from
};

/// The parts that are no lists.
inline constexpr char kStepsPart[] = "(passos)";
inline constexpr char kFeedPart[] = "(avisos)";

/// Finds parts, by the keys of their lists, within one snapshot of the database. Runs on any thread.
std::map<std::string, AlertPart> ReadAlerts(const std::shared_ptr<zorCrmParvel::Store>& store,
                                            const std::set<std::string>& parts);

}  // namespace desktop
