#include "console/manual_pages.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "console/shell_completion.h"

namespace console {
namespace {

/// Text of a page: what its language would take for a command or a hyphen is written so that it stays itself.
std::string Plain(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool begins = i == 0 || text[i - 1] == '\n';
    if (begins && (text[i] == '.' || text[i] == '\'')) plain += "\\&";
    if (text[i] == '\\')
      plain += "\\e";
    else if (text[i] == '-')
      plain += "\\-";
    else
      plain += text[i];
  }
  return plain;
}

std::string WordsOf(const CLI::App& command, char between) {
  const CLI::App* parent = command.get_parent();
  return parent == nullptr ? command.get_name() : WordsOf(*parent, between) + between + command.get_name();
}

std::string Title(const CLI::App& command) {
  std::string title = WordsOf(command, '-');
  std::transform(title.begin(), title.end(), title.begin(),
                 [](char letter) { return 'a' <= letter && letter <= 'z' ? letter - 'a' + 'A' : letter; });
  return title;
}

std::string ValueOf(const CLI::Option& option) {
  if (option.get_items_expected_max() == 0) return "";
  return option.get_type_name().empty() ? "TEXTO" : option.get_type_name();
}

std::string Synopsis(const CLI::App& command) {
  std::string text = ".B " + Plain(WordsOf(command, ' ')) + "\n";
  if (!command.get_subcommands(Shown).empty()) text += ".I comando\n";
  text += "[\n.I opções\n]\n";
  for (const CLI::Option* option : command.get_options(IsArgument))
    text += std::string(option->get_required() ? "" : "[\n") + ".I " + Plain(option->get_name(true)) + "\n" +
            (option->get_required() ? "" : "]\n");
  return text;
}

std::string Options(const CLI::App& command) {
  std::string text;
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_group().empty()) continue;
    const std::string value = ValueOf(*option);
    text += ".TP\n";
    if (IsArgument(option))
      text += ".I " + Plain(option->get_name(true)) + "\n";
    else
      text += ".BR \"" + Plain(option->get_name(false, true)) + "\"" +
              (value.empty() ? "" : " \" " + Plain(value) + "\"") + "\n";
    text += Plain(option->get_description()) + "\n";
  }
  return text;
}

std::string Commands(const CLI::App& command) {
  std::string text;
  for (const CLI::App* below : command.get_subcommands(Shown))
    text += ".TP\n.B " + Plain(below->get_name()) + "\n" + Plain(below->get_description()) + " Veja\n.BR " +
            Plain(WordsOf(*below, '-')) + " (1).\n";
  return text;
}

/// The program's last words: a line that ends a sentence ends a paragraph.
std::string Paragraphs(const std::string& text) {
  std::string paragraphs = ".PP\n";
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    paragraphs += Plain(text.substr(begin, end - begin)) + "\n";
    if (end < text.size() && text[end - 1] == '.') paragraphs += ".PP\n";
    begin = end + 1;
  }
  return paragraphs;
}

std::string Section(const char* title, const std::string& text) {
  return text.empty() ? "" : std::string(".SH ") + title + "\n" + text;
}

void Write(const std::string& file, const std::string& text) {
  std::ofstream out(file, std::ios::binary);
  out << text;
  if (!out.flush()) throw std::runtime_error("Não foi possível escrever " + file + ".");
}

void WritePages(const CLI::App& command, const std::string& folder) {
  Write(folder + "/" + WordsOf(command, '-') + ".1", ManualPage(command));
  for (const CLI::App* below : command.get_subcommands(Shown)) WritePages(*below, folder);
}

const CLI::App& ProgramOf(const CLI::App& command) {
  return command.get_parent() == nullptr ? command : ProgramOf(*command.get_parent());
}

}  // namespace

std::string ManualPage(const CLI::App& command) {
  const CLI::App& program = ProgramOf(command);
  const bool whole = &command == &program;
  return ".TH " + Title(command) + " 1 \"\" \"parvel " PARVEL_VERSION "\" \"Gestão de frota\"\n" +
         Section("NOME", Plain(WordsOf(command, '-')) + " \\- " + Plain(command.get_description()) + "\n") +
         Section("SINOPSE", Synopsis(command)) + Section("COMANDOS", Commands(command)) +
         Section("OPÇÕES", Options(command)) + (whole ? "" : Section("OPÇÕES COMUNS", Options(program))) +
         Section("NOTAS", Paragraphs(program.get_footer())) +
         (whole ? Section("VEJA TAMBÉM", ".BR parvel\\-desktop (1)\n")
                : Section("VEJA TAMBÉM", ".BR parvel (1)\n"));
}

void WriteManual(const CLI::App& program, const std::string& folder) {
  WritePages(program, folder);
  Write(folder + "/parvel.bash", BashCompletion(program));
  Write(folder + "/_parvel", ZshCompletion(program));
}

}  // namespace console
