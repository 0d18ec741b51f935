#pragma once

#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace console {

/// What a shell offers after the words of a call: commands, options and, where a value is wanted, files.
std::string BashCompletion(const CLI::App& program);
std::string ZshCompletion(const CLI::App& program);

/// True for a command that the help shows.
bool Shown(const CLI::App* command);
/// True for what is told by its place and not by a name.
bool IsArgument(const CLI::Option* option);

}  // namespace console
