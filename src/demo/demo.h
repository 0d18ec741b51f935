#pragma once

#include <memory>
#include <string>

#include "store/store.h"

namespace demo {

/// Error 457 when the database isn't empty: demonstration data never mixes with an office's own. `elsewhere`
/// says what to name instead.
void RequireEmpty(const zorCrmParvel::DataAccessRef& bd, const std::string& elsewhere);

/// Fills an empty database with a demonstration fleet, written through the entities, with dates relative to
/// today. All of it or nothing. Errors as of `RequireEmpty`.
void FillDemo(const std::shared_ptr<zorCrmParvel::Store>& database, const std::string& elsewhere = {});

}  // namespace demo
