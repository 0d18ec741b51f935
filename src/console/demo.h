#pragma once

#include "host/data_access.h"

namespace console {

/// Fills an empty database with demonstration data, written through the entities. Error 457 when it isn't
/// empty.
void FillDemo(const zorCrmParvel::DataAccessRef& bd);

}  // namespace console
