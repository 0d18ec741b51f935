#pragma once

#include <string>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace console {

/// What is wrong with a call, in the user's language.
std::string InPortuguese(const CLI::ParseError& error);

/// Puts the headings of the help into the user's language. Before commands are added, which take them over.
void Translate(CLI::App& app);

}  // namespace console
