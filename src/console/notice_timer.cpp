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
constexpr const char* kService = "parvel-aviso.service";

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
std::string ServiceUnit(const TimedNotice& notice) {
  std::string call = UnitWord(ThisProgram());
  const auto add = [&call](const char* option, const std::string& value) {
    if (!value.empty()) call += std::string(" ") + option + " " + UnitWord(value);
  };
  const auto whole = [](const std::string& file) {
    return file.empty() ? file : fs::absolute(file).string();
  };
  add("--db", whole(notice.database.file));
  add("--ligacao", notice.database.connection);
  add("--senha-ficheiro", whole(notice.database.passwordFile));
  call += notice.calendarOnly ? " aviso --calendario" : " aviso";
  add("--senha-correio-ficheiro", whole(notice.passwordFile));
  // Where the network isn't there yet it is tried again, for some hours; what is set wrong stays so.
  return "[Unit]\nDescription=Avisos da frota por correio\nStartLimitIntervalSec=6h\nStartLimitBurst=8\n\n"
         "[Service]\nType=oneshot\nExecStart=" +
         call + "\nRestart=on-failure\nRestartSec=15min\nRestartPreventExitStatus=1 2\n";
}

constexpr const char* kTimerUnit =
    "[Unit]\nDescription=Avisos da frota por correio, todos os dias\n\n"
    "[Timer]\nOnCalendar=*-*-* 08:00\nPersistent=true\n\n[Install]\nWantedBy=timers.target\n";

bool SystemDoes(const std::string& words) {
  const int status = std::system(("systemctl --user " + words + " >/dev/null 2>&1").c_str());
  return status != -1 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void RemoveUnits() {
  fs::remove(UnitFolder() / kTimer);
  fs::remove(UnitFolder() / kService);
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

int InstallTimer(const TimedNotice& notice, std::ostream& out, std::ostream& err) {
  const fs::path folder = UnitFolder();
  store::CreatePrivateFolders(folder.string());
  platform::WritePrivateFile((folder / kService).string(), ServiceUnit(notice));
  platform::WritePrivateFile((folder / kTimer).string(), kTimerUnit);
  if (!SystemDoes("daemon-reload") || !SystemDoes(std::string("enable --now ") + kTimer)) {
    RemoveUnits();
    return TellRefusal(err);
  }
  out << (notice.calendarOnly ? "Escreve o calendário" : "Avisa")
      << " todos os dias às 8 horas. Para deixar: parvel aviso --retirar.\n";
  return kDone;
}

int RemoveTimer(std::ostream& out, std::ostream& err) {
  if (!fs::exists(UnitFolder() / kTimer)) {
    out << "Não estava instalado.\n";
    return kDone;
  }
  const bool done = SystemDoes(std::string("disable --now ") + kTimer);
  RemoveUnits();
  SystemDoes("daemon-reload");
  if (!done) return TellRefusal(err);
  out << "Deixa de avisar por si.\n";
  return kDone;
}

}  // namespace console
