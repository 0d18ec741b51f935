// The window with an empty list, from the start of the process until it has been painted; against an empty
// main window of the toolkit. Both on a display: the toolkit's plugin for no display skips what every window
// on a display has to do.

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "baseline.h"
#include "rivals.h"

extern char** environ;

namespace {

constexpr int kSamples = 21;
constexpr double kLimit = 1.5;

void RunProgram(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  pid_t process = 0;
  int status = 0;
  bench::Require(posix_spawnp(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0);
  bench::Require(waitpid(process, &status, 0) == process && status == 0);
}

}  // namespace

int main() {
  const bench::Folder folder("parvel-bench-window");
  const std::string home = std::filesystem::path(folder.File()).parent_path().string();
  for (const char* place : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
    setenv(place, home.c_str(), 1);
  std::filesystem::permissions(home, std::filesystem::perms::owner_all);

  bench::Rivals rivals(kSamples);
  rivals.Compare(
      "window with an empty list / empty", kLimit, 1,
      [&] {
        RunProgram({PARVEL_WINDOW, "--arranque", "--db", folder.File()});
      },
      [] { RunProgram({PARVEL_EMPTY_WINDOW}); });
  return rivals.Report();
}
