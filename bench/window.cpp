// The window with an empty list, from the start of the process until it has been painted; against an empty
// main window of the toolkit. Both on a real display: without one, a virtual one is started, since the
// toolkit's plugin for no display skips what every window on a display has to do.

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "baseline.h"
#include "rivals.h"

extern char** environ;

namespace {

constexpr int kSamples = 21;
constexpr double kLimit = 1.5;

pid_t Start(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  pid_t process = 0;
  bench::Require(posix_spawnp(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0);
  return process;
}

void RunProgram(std::vector<std::string> words) {
  int status = 0;
  const pid_t process = Start(std::move(words));
  bench::Require(waitpid(process, &status, 0) == process && status == 0);
}

/// A virtual display for as long as it lives.
class Display {
 public:
  Display() {
    int ends[2];
    bench::Require(pipe(ends) == 0);
    server_ = Start({"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0", "1366x768x24"});
    char number[16] = {};
    bench::Require(read(ends[0], number, sizeof number - 1) > 0);
    setenv("DISPLAY", (":" + std::to_string(std::atoi(number))).c_str(), 1);
    close(ends[0]);
    close(ends[1]);
  }
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;
  ~Display() {
    kill(server_, SIGTERM);
    waitpid(server_, nullptr, 0);
  }

 private:
  pid_t server_;
};

}  // namespace

int main() {
  const bench::Folder folder("parvel-bench-window");
  const std::string home = std::filesystem::path(folder.File()).parent_path().string();
  for (const char* place : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
    setenv(place, home.c_str(), 1);
  std::optional<Display> display;
  if (getenv("DISPLAY") == nullptr) display.emplace();
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
