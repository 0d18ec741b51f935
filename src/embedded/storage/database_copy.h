#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "embedded/storage/sqlite.h"

namespace embedded {

/// The number of rows of each table.
std::map<std::string, std::int64_t> CountRows(const SqliteConnection& connection);

/// Writes a copy to a file that does not exist yet. The file takes its name when it is complete, was compared
/// with the original and is durable. Error -2147467259 otherwise, and there is no such file.
void CopyDatabase(const SqliteConnection& source, const std::string& name);

/// Writes a complete, compared and durable copy to a file that has not got its final name yet. Nothing stays
/// of a copy that fails.
void WriteCopy(const SqliteConnection& source, const std::string& unfinished);

}  // namespace embedded
