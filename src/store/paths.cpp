#include "store/paths.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace store {
namespace {

std::filesystem::path DataDirectory() {
  if (const char* data = std::getenv("XDG_DATA_HOME"); data != nullptr && *data == '/') return data;
  if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0')
    return std::filesystem::path(home) / ".local" / "share";
  throw std::runtime_error(
      "Não há pasta de dados do utilizador (HOME e XDG_DATA_HOME estão vazias): indique --db.");
}

}  // namespace

void CreatePrivateFolders(const std::string& folder) {
  std::filesystem::path made;
  for (const auto& part : std::filesystem::path(folder)) {
    made /= part;
    if (mkdir(made.c_str(), 0700) == 0) continue;
    const int reason = errno;
    std::error_code ignored;  // on the way there may be folders that only let pass
    if (std::filesystem::is_directory(made, ignored)) continue;
    throw std::runtime_error(
        "Não é possível criar a pasta " + made.string() + ": " +
        (reason == EEXIST ? "há um ficheiro com esse nome. Escolha outra pasta." : std::strerror(reason)));
  }
}

std::string DefaultDatabasePath() {
  const auto folder = DataDirectory() / "parvel";
  CreatePrivateFolders(folder.string());
  return (folder / "frota.db").string();
}

void CreatePrivateFile(const std::string& file) {
  CreatePrivateFolders(std::filesystem::path(file).parent_path().string());
  const int made = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (made < 0 && errno != EEXIST)
    throw std::runtime_error("Não é possível criar o ficheiro " + file + ": " + std::strerror(errno));
  if (made >= 0) close(made);
}

// The engine takes ":memory:" for a database that is gone at the end.
std::string DatabaseFileNamed(const std::string& name) { return name == ":memory:" ? "./" + name : name; }

}  // namespace store
