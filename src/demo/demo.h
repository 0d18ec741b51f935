#pragma once

#include <memory>

#include "store/store.h"

namespace demo {

/// Fills an empty database with a demonstration fleet, written through the entities, with dates relative to
/// today. All of it or nothing. Error 457 when the database isn't empty.
void FillDemo(const std::shared_ptr<zorCrmParvel::Store>& database);

}  // namespace demo
