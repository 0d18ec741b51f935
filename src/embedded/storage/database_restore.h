#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "platform/date.h"

namespace embedded {

/// Puts a copy in the place of a database file, whatever that is or isn't. The copy is opened, copied beside
/// the file and compared; then the file and what stands beside it are put aside, under a name that is given
/// back (empty: nothing was there), and the copy takes its place. Killed at any moment, the file is the one
/// or the other. Raises -2147467259, and nothing has changed, when the copy can't be used or a program has
/// the file open.
std::string RestoreDatabase(const std::string& name, const std::string& copy, std::int64_t knownVersion,
                            const platform::Date& now, std::chrono::milliseconds busyTimeout);

/// Ends a restore that was killed on its last steps. The caller holds the folder's lock.
void FinishRestore(const std::string& path, std::chrono::milliseconds busyTimeout);

}  // namespace embedded
