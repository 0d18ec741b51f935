#pragma once

#include <string>

#include "platform/screen/form.h"

namespace entry {

/// True for the ficha of a new expense, which `LikeLast` fills.
bool TakesLikeLast(const platform::Form& form);

/// Fills a new expense as the vehicle's last one: type, driver and unit price; of the type that is written,
/// else of any. The fields are typed into as the user would, so that the ficha's rules run, and the quantity
/// has the keyboard then. Says what was taken, or why nothing.
std::string LikeLast(platform::Form& form);

}  // namespace entry
