#pragma once

#include <iosfwd>
#include <string>

#include "host/data_access.h"

namespace console {

/// Attaches a file to the record of a kind and code, by its full path. A path that isn't there is kept as it
/// is.
void Attach(const zorCrmParvel::DataAccessRef& bd, std::int16_t kind, const std::string& code,
            const std::string& file);
/// Prints the files attached to a record.
void PrintAttachments(const zorCrmParvel::DataAccessRef& bd, std::int16_t kind, const std::string& code,
                      std::ostream& out);

}  // namespace console
