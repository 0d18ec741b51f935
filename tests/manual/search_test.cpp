#include "manual/search.h"

#include <gtest/gtest.h>

#include "manual/plain_text.h"

namespace {

using namespace manual;

std::string FirstFor(const char* words) {
  const std::vector<Hit> hits = Search(words);
  return hits.empty() ? "" : hits.front().page->name;
}

TEST(Search, FindsPagesByWordsInAnyOrderWithoutAccents) {
  const std::pair<const char*, const char*> cases[] = {
      {"copias seguranca", "copias"}, {"SEGURANÇA cópias", "copias"}, {"perfil recusadas", "importar"},
      {"renovar apolice", "eventos"}, {"27 dias", "trabalhos"},       {"fotografia jpg", "documentos"},
      {"senha guardada", "servidor"}, {"palavrainexistente", ""},     {"  ", ""},
  };
  for (const auto& [words, page] : cases) EXPECT_EQ(FirstFor(words), page) << words;
}

TEST(Search, FindsAMessageByItsFixedWords) {
  const std::pair<const char*, const char*> cases[] = {
      {"O registo já não existe. Abra de novo a lista e repita a operação.", "mensagens"},
      {"A cópia \"/media/pen/c.db\" não pôde ser escrita. Verifique a pasta e o espaço no disco. (cheio)",
       "mensagens-base"},
      {"O ficheiro /casa/frota.db já existe.\nEscolha outro nome.", "mensagens-ficheiros"},
      {"Outra coisa qualquer.", ""},
  };
  for (const auto& [shown, page] : cases) {
    const auto hit = FindMessage(shown);
    EXPECT_EQ(hit ? hit->page->name : "", page) << shown;
  }
}

TEST(PlainText, ParagraphsComeWithoutTheirMarks) {
  const std::vector<std::string> expected = {"Título", "Um parágrafo de duas linhas, com ligação.", "um item",
                                             "outro item", "Tecla faz"};
  EXPECT_EQ(Paragraphs("# Título\n\nUm **parágrafo** de\nduas linhas, com [ligação](x.md).\n\n- um `item`\n"
                       "- outro item\n\n| Tecla | faz |\n|---|---|\n"),
            expected);
  EXPECT_EQ(
      Paragraphs("texto\n* um\n  mais\n12. dois\n3) não\n. nem\n4.\n## Dois # \\*três\\* \\\n\n- - -\n\n[a] "
                 "b](c) d"),
      (std::vector<std::string>{"texto", "um mais", "12. dois 3) não . nem 4.", "Dois *três* \\", "a b d"}));
}

}  // namespace
