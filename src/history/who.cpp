#include "history/who.h"

#include <pwd.h>
#include <unistd.h>

#include <array>

namespace history {

Who Who::OfThisProcess() {
  Who who;
  if (const passwd* entry = getpwuid(getuid()); entry != nullptr) who.operador = entry->pw_name;
  if (who.operador.empty()) who.operador = std::to_string(getuid());
  std::array<char, 256> name{};
  if (gethostname(name.data(), name.size() - 1) == 0) who.posto = name.data();
  return who;
}

}  // namespace history
