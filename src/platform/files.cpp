#include "platform/files.h"

#include <filesystem>
#include <fstream>

#include "platform/runtime_error.h"

namespace platform {

bool FileExists(const std::string& path) {
  std::error_code failure;
  return std::filesystem::is_regular_file(path, failure);
}

Bytes ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::error_code failure;
  const auto size = std::filesystem::file_size(path, failure);
  if (!file || failure) throw RuntimeError(kFileNotFound, path);
  Bytes bytes(size);
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
  if (file.gcount() != static_cast<std::streamsize>(size)) throw RuntimeError(kFileNotFound, path);
  return bytes;
}

void WriteFile(const std::string& path, std::string_view data) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(data.data(), static_cast<std::streamsize>(data.size()));
  file.close();
  if (!file) throw RuntimeError(kPathAccess, path);
}

void WritePrivateFile(const std::string& path, std::string_view data) {
  WriteFile(path, {});
  using std::filesystem::perms;
  std::error_code failure;
  std::filesystem::permissions(path, perms::owner_read | perms::owner_write, failure);
  if (failure) throw RuntimeError(kPathAccess, path);
  WriteFile(path, data);
}

std::string FileNameOf(const std::string& path) { return path.substr(path.find_last_of("\\/") + 1); }

}  // namespace platform
