#pragma once

#include <vector>

#include "history/reader.h"

namespace history {

/// A choice of the page: days back from today, today included; 0 for all; or a calendar year back.
struct Period {
  const char* name;
  int days = 0;
  int yearsBack = -1;  // 0: this year; -1: none
};

const std::vector<Period>& Periods();
/// Narrows a filter to a period that ends today.
void Apply(const Period& period, platform::Date now, Filter& filter);

}  // namespace history
