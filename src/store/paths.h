#pragma once

#include <string>

namespace store {

/// The database that is opened when none is named: in the user's data directory, whose folder is created, for
/// the user alone. Throws std::runtime_error when there is no place for it.
std::string DefaultDatabasePath();

/// Creates what lacks of a folder, for the user alone. Throws std::runtime_error when it can't.
void CreatePrivateFolders(const std::string& folder);

/// Makes an empty file, with the folders that it lacks, for the user alone. One that is there stays as it is.
void CreatePrivateFile(const std::string& file);

/// The file that a user names: whatever the name is, it is one of a file.
std::string DatabaseFileNamed(const std::string& name);

}  // namespace store
