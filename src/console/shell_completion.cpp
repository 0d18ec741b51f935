#include "console/shell_completion.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <vector>

namespace console {
namespace {

struct Word {
  std::string name;
  std::string text;
};

/// The commands below and the options of a command, with those that it has from the program.
std::vector<Word> WordsAfter(const CLI::App& command) {
  std::vector<Word> words;
  for (const CLI::App* below : command.get_subcommands(Shown))
    words.push_back({below->get_name(), below->get_description()});
  for (const CLI::App* app = &command; app != nullptr; app = app->get_parent())
    for (const CLI::Option* option : app->get_options()) {
      if (IsArgument(option) || option->get_group().empty() || option->get_lnames().empty()) continue;
      const std::string name = "--" + option->get_lnames().front();
      if (app != &command && name == "--help") continue;
      words.push_back({name, option->get_description()});
    }
  return words;
}

void ForEach(const CLI::App& command, const std::string& path,
             const std::function<void(const CLI::App&, const std::string&)>& use) {
  use(command, path);
  for (const CLI::App* below : command.get_subcommands(Shown))
    ForEach(*below, path + " " + below->get_name(), use);
}

/// Inside the shell's single quotes.
std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char letter : text) quoted += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
  return quoted + "'";
}

/// The branches that lead from a command's words to those of a command below it.
std::string Steps(const CLI::App& program) {
  std::string steps;
  ForEach(program, program.get_name(), [&](const CLI::App& command, const std::string& path) {
    if (command.get_parent() == nullptr) return;
    steps += "      " + Quoted(path) + ") path=\"$path $word\" ;;\n";
  });
  return steps;
}

}  // namespace

bool Shown(const CLI::App* command) { return !command->get_group().empty(); }

bool IsArgument(const CLI::Option* option) { return option->get_positional(); }

std::string BashCompletion(const CLI::App& program) {
  std::string script =
      "# Completa os comandos e as opções de parvel.\n"
      "_parvel() {\n"
      "  local cur=${COMP_WORDS[COMP_CWORD]} path=parvel word words=\n"
      "  for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
      "    case \"$path $word\" in\n" +
      Steps(program) +
      "    esac\n"
      "  done\n"
      "  case $path in\n";
  ForEach(program, program.get_name(), [&](const CLI::App& command, const std::string& path) {
    std::string words;
    for (const Word& word : WordsAfter(command)) words += (words.empty() ? "" : " ") + word.name;
    script += "    " + Quoted(path) + ") words=" + Quoted(words) + " ;;\n";
  });
  return script +
         "  esac\n"
         "  mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$cur\")\n"
         "}\n"
         "complete -o bashdefault -o default -F _parvel parvel\n";
}

std::string ZshCompletion(const CLI::App& program) {
  std::string script =
      "#compdef parvel\n"
      "# Completa os comandos e as opções de parvel.\n"
      "local path=parvel word\n"
      "local -a offered\n"
      "for word in ${words[2,CURRENT-1]}; do\n"
      "    case \"$path $word\" in\n" +
      Steps(program) +
      "    esac\n"
      "done\n"
      "case $path in\n";
  ForEach(program, program.get_name(), [&](const CLI::App& command, const std::string& path) {
    script += "  " + Quoted(path) + ") offered=(\n";
    for (const Word& word : WordsAfter(command))
      script += "    " + Quoted(word.name + ":" + word.text) + "\n";
    script += "  ) ;;\n";
  });
  return script +
         "esac\n"
         "_describe parvel offered || _files\n";
}

}  // namespace console
