// What the program tells a person to do, read out of its sources, is found in the manual.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include "manual/pages.h"
#include "manual/plain_text.h"

namespace {

namespace fs = std::filesystem;

/// A text of the sources: literals that stand one behind another are one.
struct Text {
  std::string place;
  std::string words;
};

/// The end of a literal that begins at `at`; its text goes to `words`.
std::size_t ReadLiteral(const std::string& source, std::size_t at, std::string& words) {
  for (++at; at < source.size() && source[at] != '"'; ++at) {
    if (source[at] != '\\') {
      words += source[at];
    } else {
      const char escaped = source[++at];
      words += escaped == 'n' || escaped == 'r' ? ' ' : escaped;
    }
  }
  return at + 1;
}

std::vector<Text> TextsOf(const std::string& source, const std::string& file) {
  std::vector<Text> texts;
  bool joins = false;
  for (std::size_t at = 0; at < source.size();) {
    if (source.compare(at, 2, "//") == 0) {
      at = source.find('\n', at);
    } else if (source[at] == '\'') {
      at = source.find('\'', at + (source[at + 1] == '\\' ? 3 : 1));
      at = at == std::string::npos ? at : at + 1;
    } else if (source.compare(at, 2, "R\"") == 0) {
      const std::string end = ")" + source.substr(at + 2, source.find('(', at) - at - 2) + "\"";
      at = source.find(end, at) + end.size();
    } else if (source[at] == '"') {
      if (!joins) texts.push_back({file, ""});
      at = ReadLiteral(source, at, texts.back().words);
      joins = true;
    } else {
      joins = joins && std::isspace(static_cast<unsigned char>(source[at])) != 0;
      ++at;
    }
  }
  return texts;
}

/// The texts of the program with a sentence that tells what to do.
std::vector<Text> Advice() {
  const std::regex tells(
      "(^|[.;:!?)] |[.] "
      ")(Veja|Escolha|Corrija|Feche|Peça|Repita|Confirme|Indique|Tente|Preencha|Verifique|Use"
      "|Abra|Ligue|Guarde|Dê|Ponha|Crie|Mude|Espere|Instale|Retire|Apague|Diga|Escreva|Introduza|Anexe|"
      "Reponha"
      "|Actualize|Comunique|Deve|Exporte|Recarregue|Avise|Encurte|Remova|Divida)[- ,.]");
  const std::regex english(" (the|is not) ");
  std::vector<Text> advice;
  const fs::path src = fs::path(PARVEL_SOURCE_DIR) / "src";
  for (const auto& entry : fs::recursive_directory_iterator(src)) {
    if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
    std::ifstream in(entry.path());
    std::stringstream source;
    source << in.rdbuf();
    for (Text& text : TextsOf(source.str(), fs::relative(entry.path(), src).string()))
      if (std::regex_search(text.words, tells) && !std::regex_search(text.words, english))
        advice.push_back(std::move(text));
  }
  return advice;
}

/// What stays the same whatever the message is about: the text between its places for names.
std::vector<std::string> FixedWords(const std::string& text) {
  const std::regex place("%[0-9]?");
  std::vector<std::string> words(std::sregex_token_iterator(text.begin(), text.end(), place, -1), {});
  for (std::string& part : words) {
    part = manual::Folded(part);
    while (!part.empty() && part.back() == ' ') part.pop_back();
  }
  return words;
}

TEST(Messages, WhatTheProgramTellsToDoIsInTheManual) {
  std::string manual_text;
  for (const manual::Page& page : manual::Pages())
    for (const std::string& paragraph : manual::Paragraphs(page.text)) manual_text += paragraph + "\n";
  manual_text = manual::Folded(manual_text);
  const std::vector<Text> advice = Advice();
  EXPECT_GT(advice.size(), 80U);
  for (const Text& text : advice)
    for (const std::string& words : FixedWords(text.words))
      EXPECT_NE(manual_text.find(words), std::string::npos)
          << text.place << ": explain it on one of the pages docs/manual/mensagens*.md, with … for names:\n  "
          << text.words;
}

}  // namespace
