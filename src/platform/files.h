#pragma once

#include <string>
#include <string_view>

#include "platform/variant.h"

namespace platform {

/// While it lives, the functions below refuse a file: to close it would take away the locks that somebody in
/// this program holds on it. A link to it is refused as well; that there is no such file yet does not matter.
class FileInUse {
 public:
  explicit FileInUse(std::string path);
  ~FileInUse();
  FileInUse(const FileInUse&) = delete;
  FileInUse& operator=(const FileInUse&) = delete;
  static bool Covers(const std::string& path);

 private:
  std::string path_;
};

// Paths are UTF-8, as the system takes them.

/// True when a regular file is at the path.
bool FileExists(const std::string& path);
/// The whole of a file. Error 53 when it can't be read, 75 when it is in use.
Bytes ReadFile(const std::string& path);
/// Writes a whole file, over one that is there. Error 75 when it can't be written or is in use.
void WriteFile(const std::string& path, std::string_view data);
/// The same, for a file that nobody but the user may read.
void WritePrivateFile(const std::string& path, std::string_view data);
/// What stands behind the last "\" or "/" of a path.
std::string FileNameOf(const std::string& path);

}  // namespace platform
