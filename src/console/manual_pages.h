#pragma once

#include <string>

namespace CLI {
class App;
}  // namespace CLI

/// What the system shows of the program outside it, made from its commands, so that it says what they say.
namespace console {

/// Writes a manual page of the program and of each of its commands (`parvel.1`,
/// `parvel-importacoes-anular.1`), and what completes words in a shell (`parvel.bash`, `_parvel`), into a
/// folder. Error of the file system when it can't be written.
void WriteManual(const CLI::App& program, const std::string& folder);

/// A command's page, in the language of manual pages.
std::string ManualPage(const CLI::App& command);

}  // namespace console
