#pragma once

#include <chrono>
#include <string>

#include "embedded/storage/schema.h"
#include "embedded/storage/sqlite.h"

namespace embedded {

/// Opens the file of a database, creates it where no file is, or brings it up to date. The connection waits
/// `busyTimeout` for others, makes every commit durable and knows the server's order and functions. Raises
/// -2147467259, with the file left as it was, for anything but a database of this program of the schema's
/// version or an earlier one, and for a place on another machine.
SqliteConnection OpenDatabaseFile(const std::string& name, const Schema& schema,
                                  std::chrono::milliseconds busyTimeout);

/// The same in memory.
SqliteConnection OpenDatabaseInMemory(const Schema& schema);

/// Raises -2147467259 unless databases can be kept in the folder of a file. The path is absolute.
void RequireFolder(const std::string& path);

}  // namespace embedded
