#include "console/call_texts.h"

#include <CLI/CLI.hpp>
#include <utility>

namespace console {

std::string InPortuguese(const CLI::ParseError& error) {
  if (dynamic_cast<const CLI::RequiredError*>(&error)) return "Falta um argumento ou um comando.";
  if (dynamic_cast<const CLI::ExtrasError*>(&error))
    return "Há um argumento a mais ou uma opção desconhecida.";
  if (dynamic_cast<const CLI::ExcludesError*>(&error)) return "Há duas opções que não vão juntas.";
  if (dynamic_cast<const CLI::RequiresError*>(&error)) return "Há uma opção que precisa de outra.";
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
    return "Há uma opção sem o seu valor, ou com valores a mais.";
  return "Os argumentos não se entendem.";
}

void Translate(CLI::App& app) {
  auto formatter = app.get_formatter();
  for (const auto& [label, text] : {std::pair{"Usage", "Uso"},
                                    {"OPTIONS", "OPÇÕES"},
                                    {"SUBCOMMAND", "COMANDO"},
                                    {"SUBCOMMANDS", "COMANDOS"},
                                    {"Subcommands", "Comandos"},
                                    {"Options", "Opções"},
                                    {"Positionals", "Argumentos"},
                                    {"TEXT", "TEXTO"},
                                    {"REQUIRED", "obrigatório"},
                                    {"Excludes", "sem"},
                                    {"Needs", "com"}})
    formatter->label(label, text);
  formatter->column_width(28);
}

}  // namespace console
