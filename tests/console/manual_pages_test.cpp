// The whole manual of a small program that has one of each thing a program may have.

#include "console/manual_pages.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

#include "support/files.h"
#include "support/temporary_folder.h"
#include "support/whole_text.h"

namespace {

using namespace testing_support;

TEST(ManualPagesTest, EveryPartOfAProgramHasItsPlace) {
  CLI::App program("Guarda tudo.", "parvel");
  program.option_defaults()->group("Opções");
  program.set_help_flag("-h,--help", "Mostra esta ajuda.");
  program.footer("Os ficheiros ficam em C:\\casa.\n.escondidos não.\n'Entre plicas' também\nnão.");
  std::string text;
  bool flag = false;
  program.add_option("--em", text, "Pasta, em vez da habitual.")->type_name("PASTA");
  CLI::App& keep = *program.add_subcommand("guardar", "Guarda uma coisa-ou-outra.");
  keep.add_option("coisa", text, "O que se guarda.")->required();
  keep.add_option("sítio", text, "Onde.");
  keep.add_flag("-d,--depressa", flag, "Sem perguntar.");
  keep.add_option("--palavra", text, "Palavra.")->type_name("");
  keep.add_option("--oculta", text, "Ninguém a vê.")->group("");
  CLI::App& lists = *program.add_subcommand("listas", "Listas.");
  lists.add_subcommand("ver", "Mostra uma lista.")
      ->add_option("--sexo", text, "Só destes.")
      ->check(CLI::IsMember({"m", "f"}));
  program.add_subcommand("oculto", "Ninguém o vê.")->group("");

  const TemporaryFolder folder;
  console::WriteManual(program, folder.File(""));
  std::string written;
  for (const char* file :
       {"parvel.1", "parvel-guardar.1", "parvel-listas.1", "parvel-listas-ver.1", "parvel.bash", "_parvel"}) {
    std::string page = Contents(folder.File(file));
    if (const std::size_t version = page.find("\"parvel "); page.rfind(".TH", 0) == 0)
      page.erase(version + 8, page.find('"', version + 8) - version - 8);
    written += std::string("===== ") + file + "\n" + page;
  }
  EXPECT_FALSE(std::filesystem::exists(folder.File("parvel-oculto.1")));
  ExpectWholeText(PARVEL_SOURCE_DIR "/tests/console/manual.txt", written);
}

}  // namespace
