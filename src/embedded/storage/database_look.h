#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "embedded/storage/sqlite.h"

namespace embedded {

/// Gives a connection the server's order and functions, and lets it wait for others. Reads nothing.
void Equip(const SqliteConnection& connection, std::chrono::milliseconds busyTimeout);

/// For a file that is not finished yet: nothing is made durable, nor can anything be undone.
void LeaveToOneSync(const SqliteConnection& connection);

/// Opens the file of a database that is there, and looks at it through SQLite alone, when SQLite has
/// recovered what another program left half done. A log that was left beside it by a program that is gone is
/// looked at before it may go into the file; it does not, until `KeepLogAtClose(false)`. A file that may not
/// be written is opened for reading, its log included. Raises -2147467259, with the file left as it was, for
/// anything but a sound database of this program that `knownVersion` or an earlier version wrote.
SqliteConnection OpenExamined(const std::string& path, std::int64_t knownVersion,
                              std::chrono::milliseconds busyTimeout);

/// What is wrong inside a database, one fault a line; "ok" when nothing is.
std::string Faults(const SqliteConnection& connection);

}  // namespace embedded
