#include "program.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <exception>

#include "steps.h"

namespace kill_tests {

bool Told::Has(const std::string& line) const {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

Told RunKilled(int killAt, const std::function<void(const Tell&)>& act, const Tell& heard) {
  std::array<int, 2> pipe{};
  if (::pipe(pipe.data()) != 0) return {{"!pipe"}, 0};
  const pid_t child = fork();
  if (child == 0) {
    close(pipe[0]);
    const Tell tell = [&](const std::string& line) { WriteLine(pipe[1], line); };
    try {
      CountSteps(killAt);
      act(tell);
      tell("#" + std::to_string(Steps()));
    } catch (const std::exception& error) {
      tell(std::string("!") + error.what());
    }
    _exit(0);
  }
  close(pipe[1]);
  Told told;
  std::string line;
  for (char c = 0; read(pipe[0], &c, 1) == 1;) {
    if (c != '\n') {
      line += c;
      continue;
    }
    if (line.starts_with('#'))
      told.steps = std::stoi(line.substr(1));
    else
      told.lines.push_back(line);
    heard(line);
    line.clear();
  }
  close(pipe[0]);
  waitpid(child, nullptr, 0);
  return told;
}

}  // namespace kill_tests
