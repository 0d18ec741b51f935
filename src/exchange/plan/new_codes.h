#pragma once

#include <set>
#include <string>
#include <vector>

#include "exchange/plan/plan_data.h"

namespace exchange {

/// The codes that a plan's rows name and the database lacks, those named most often first. Vehicles aren't
/// among them.
std::vector<NewCode> FindUnknownCodes(PlanData& plan);
/// A code for a name: at most 10 characters, of none of those taken, which it joins.
std::string ProposedCode(const std::string& name, std::set<std::string>& taken);
/// The code of a new record of a table: of drivers the next number, else of the name.
std::string ProposedCode(const std::string& table, const std::string& name, std::set<std::string>& taken);
/// Names that differ by a slip of the pen: of their letters, never of their digits.
bool AreNearEqual(const std::string& a, const std::string& b);

}  // namespace exchange
