#pragma once

#include <string>
#include <vector>

#include "platform/screen/form.h"

namespace entry {

/// True for the ficha of a new expense, which `LikeLast` fills.
bool TakesLikeLast(const platform::Form& form);

/// What was taken so far on the ficha: types of expense, of one vehicle.
struct TakenTypes {
  std::string plate;
  std::vector<std::string> types;
};

/// Fills a new expense as the vehicle's last one: type, driver and unit price; of the type that is written,
/// else of any. Asked again for what it filled, it goes on to the last one of another type. The fields are
/// typed into as the user would, so that the ficha's rules run, and the quantity has the keyboard then. Says
/// what was taken, or why nothing.
std::string LikeLast(platform::Form& form, TakenTypes& taken);

}  // namespace entry
