#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/date.h"
#include "platform/recordset.h"

namespace platform {

/// True for a moment that a column of dates holds: 01-01-1753 to 31-12-9999.
bool FitsDatetime(Date date);

/// Looks at the values that a row is about to be written with, one a field; none for a field that is left as
/// it is. Error -2147217887, in Portuguese, naming the field of a date that no column holds.
void RequireStorableDates(const std::vector<FieldInfo>& fields,
                          const std::vector<std::optional<Variant>>& values);

}  // namespace platform
