#pragma once

#include <string>
#include <string_view>

#include "platform/variant.h"

namespace platform {

/// True when a regular file is at the path.
bool FileExists(const std::string& path);
/// The whole of a file. Error 53 when it can't be read.
Bytes ReadFile(const std::string& path);
/// Writes a whole file, over one that is there. Error 75 when it can't be written.
void WriteFile(const std::string& path, std::string_view data);
/// The same, for a file that nobody but the user may read.
void WritePrivateFile(const std::string& path, std::string_view data);
/// What stands behind the last "\" or "/" of a path.
std::string FileNameOf(const std::string& path);

}  // namespace platform
