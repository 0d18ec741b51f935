#include "console/paths.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace console {
namespace {

std::filesystem::path DataDirectory() {
  if (const char* data = std::getenv("XDG_DATA_HOME"); data != nullptr && *data == '/') return data;
  if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0')
    return std::filesystem::path(home) / ".local" / "share";
  throw std::runtime_error(
      "Não há pasta de dados do utilizador (HOME e XDG_DATA_HOME estão vazias): indique --db.");
}

}  // namespace

std::string DefaultDatabasePath() {
  const auto folder = DataDirectory() / "parvel";
  std::error_code failure;
  std::filesystem::create_directories(folder, failure);
  if (failure)
    throw std::runtime_error("Não é possível criar a pasta " + folder.string() + ": " + failure.message());
  return (folder / "frota.db").string();
}

}  // namespace console
