#pragma once

#include <string>

namespace console {

/// The database that is opened when none is named: in the user's data directory, whose folder is created.
/// Throws std::runtime_error when there is no place for it.
std::string DefaultDatabasePath();

}  // namespace console
