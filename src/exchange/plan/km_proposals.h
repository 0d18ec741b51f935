#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "exchange/plan/plan_data.h"

namespace exchange {

/// Kilometres for fills that come without them: by time between the readings before and after, else from the
/// last one at the average of the 90 days before it. Readings are the fills in the database, the vehicle's
/// initial one, and those of the file.
class KmProposals {
 public:
  explicit KmProposals(PlanData& plan) : plan_(plan) {}
  /// None when the readings don't tell.
  std::optional<platform::Currency> Propose(const std::string& plate, platform::Date date);
  /// True for a type that is a fuel.
  bool IsFuel(const std::string& type);

 private:
  using Readings = std::map<platform::Date, platform::Currency>;
  Readings& ReadingsOf(const std::string& plate);
  void ReadFile();

  PlanData& plan_;
  std::map<std::string, Readings> stored_;  // with those of the file
  std::map<std::string, Readings> file_;
  std::map<std::string, bool> fuels_;
  bool fileRead_ = false;
};

}  // namespace exchange
