#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "embedded/sqlite.h"

namespace embedded {

/// Opens the file of a database, or creates an empty one; ":memory:" lives in memory. The connection waits
/// `busyTimeout` for others, makes every commit durable and knows the server's order and functions. Raises
/// -2147467259, with the file left as it was, for anything but a database of this program that `knownVersion`
/// or an earlier version wrote.
SqliteConnection OpenDatabaseFile(const std::string& path, std::int64_t knownVersion,
                                  std::chrono::milliseconds busyTimeout);

/// Lets readers and one writer work at the same time; waits `busyTimeout` for others who open the file just
/// now. Only once the file holds its tables and marks.
void UseWriteAheadLog(const SqliteConnection& connection, std::chrono::milliseconds busyTimeout);

/// Writes a copy to a file that does not exist yet, and makes it durable. Error -2147467259 otherwise.
void CopyDatabase(const SqliteConnection& connection, const std::string& file);

}  // namespace embedded
