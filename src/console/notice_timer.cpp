#include "console/notice_timer.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <vector>

#include "console/program.h"
#include "platform/files.h"
#include "store/paths.h"

namespace console {
namespace {

namespace fs = std::filesystem;

constexpr const char* kTimer = "parvel-aviso.timer";

fs::path UnitFolder() {
  const char* config = std::getenv("XDG_CONFIG_HOME");
  const char* home = std::getenv("HOME");
  const fs::path base = config != nullptr && *config != '\0'
                            ? fs::path(config)
                            : fs::path(home == nullptr ? "" : home) / ".config";
  return base / "systemd" / "user";
}

std::string ThisProgram() { return fs::read_symlink("/proc/self/exe").string(); }

/// What the timer calls: this program on that database.
std::string ServiceUnit(const store::DatabaseChoice& database, const std::string& passwordFile) {
  std::string call = UnitWord(ThisProgram());
  const auto add = [&call](const char* option, const std::string& value) {
    if (!value.empty()) call += std::string(" ") + option + " " + UnitWord(value);
  };
  const auto whole = [](const std::string& file) {
    return file.empty() ? file : fs::absolute(file).string();
  };
  add("--db", whole(database.file));
  add("--ligacao", database.connection);
  add("--senha-ficheiro", whole(database.passwordFile));
  call += " aviso";
  add("--senha-correio-ficheiro", whole(passwordFile));
  return "[Unit]\nDescription=Avisos da frota por correio\n\n[Service]\nType=oneshot\nExecStart=" + call +
         "\n";
}

constexpr const char* kTimerUnit =
    "[Unit]\nDescription=Avisos da frota por correio, todos os dias\n\n"
    "[Timer]\nOnCalendar=*-*-* 08:00\nPersistent=true\n\n[Install]\nWantedBy=timers.target\n";

bool SystemDoes(const std::string& words) {
  const int status = std::system(("systemctl --user " + words + " >/dev/null 2>&1").c_str());
  return status != -1 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

int TellRefusal(std::ostream& err) {
  err << "O sistema não aceita temporizadores do utilizador (systemctl --user). Peça a quem o administra que "
         "os ligue, ou "
         "chame parvel aviso por outro meio, uma vez por dia.\n";
  return kFailed;
}

}  // namespace

std::string UnitWord(const std::string& word) {
  std::string quoted = "\"";
  for (const char letter : word) {
    if (letter == '"' || letter == '\\') quoted += '\\';
    if (letter == '%' || letter == '$') quoted += letter;
    quoted += letter;
  }
  return quoted + "\"";
}

int InstallTimer(const store::DatabaseChoice& database, const std::string& passwordFile, std::ostream& out,
                 std::ostream& err) {
  const fs::path folder = UnitFolder();
  store::CreatePrivateFolders(folder.string());
  platform::WritePrivateFile((folder / "parvel-aviso.service").string(), ServiceUnit(database, passwordFile));
  platform::WritePrivateFile((folder / kTimer).string(), kTimerUnit);
  if (!SystemDoes("daemon-reload") || !SystemDoes(std::string("enable --now ") + kTimer))
    return TellRefusal(err);
  out << "Avisa todos os dias às 8 horas. Para deixar: parvel aviso --retirar.\n";
  return kDone;
}

int RemoveTimer(std::ostream& out, std::ostream& err) {
  const fs::path folder = UnitFolder();
  if (!fs::exists(folder / kTimer)) {
    out << "Não estava instalado.\n";
    return kDone;
  }
  const bool done = SystemDoes(std::string("disable --now ") + kTimer);
  fs::remove(folder / kTimer);
  fs::remove(folder / "parvel-aviso.service");
  SystemDoes("daemon-reload");
  if (!done) return TellRefusal(err);
  out << "Deixa de avisar por si.\n";
  return kDone;
}

}  // namespace console
