#pragma once

#include <iosfwd>
#include <string>

#include "host/data_access.h"

namespace console {

/// Prints the files attached to a record, by the kind and code of the record; before that, attaches `file` by
/// its full path unless it is empty. A path that isn't there is kept as it is.
void PrintAttachments(const zorCrmParvel::DataAccessRef& bd, std::int16_t kind, const std::string& code,
                      const std::string& file, std::ostream& out);

}  // namespace console
