#include "platform/files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"

namespace platform {
namespace {

std::mutex filesInUseMutex;
std::vector<std::string>& FilesInUse() {
  static std::vector<std::string> files;
  return files;
}

void RefuseInUse(const std::string& path) {
  if (FileInUse::Covers(path))
    throw RuntimeError(
        kPathAccess, path,
        "O ficheiro \"" + path + "\" é da base de dados que está aberta. Escolha outro ficheiro.");
}

}  // namespace

FileInUse::FileInUse(std::string path) : path_(std::move(path)) {
  const std::lock_guard lock(filesInUseMutex);
  FilesInUse().push_back(path_);
}

FileInUse::~FileInUse() {
  const std::lock_guard lock(filesInUseMutex);
  std::vector<std::string>& files = FilesInUse();
  files.erase(std::find(files.begin(), files.end(), path_));
}

bool FileInUse::Covers(const std::string& path) {
  const std::lock_guard lock(filesInUseMutex);
  const std::vector<std::string>& files = FilesInUse();
  return std::any_of(files.begin(), files.end(), [&](const std::string& file) {
    std::error_code different;
    return std::filesystem::equivalent(file, path, different);
  });
}

bool FileExists(const std::string& path) {
  std::error_code failure;
  return std::filesystem::is_regular_file(path, failure);
}

Bytes ReadFile(const std::string& path) {
  RefuseInUse(path);
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
  RefuseInUse(path);
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
