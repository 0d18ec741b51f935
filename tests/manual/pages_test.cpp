#include "manual/pages.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "host/form_catalog.h"
#include "host/sistema.h"

namespace {

using namespace manual;

TEST(Pages, EveryLinkLeadsSomewhereAndEveryPictureExists) {
  const std::filesystem::path folder = std::filesystem::path(PARVEL_SOURCE_DIR) / "docs/manual";
  for (const Page& page : Pages()) {
    EXPECT_FALSE(page.title.empty()) << page.name;
    for (const std::string& link : LinksOf(page))
      EXPECT_TRUE(std::filesystem::exists(folder / link)) << page.name << ": " << link;
  }
}

TEST(Pages, TheIndexComesFirstAndLeadsToAllOthers) {
  for (const Page& page : Pages()) EXPECT_EQ(FindPage(page.name), &page);
  EXPECT_EQ(FindPage("nada"), nullptr);
  ASSERT_EQ(Pages().front().name, kIndex);
  const std::vector<std::string> links = LinksOf(Pages().front());
  ASSERT_EQ(links.size() + 1, Pages().size()) << "a page that the index doesn't link";
  for (std::size_t i = 0; i < links.size(); ++i) EXPECT_EQ(links[i], Pages()[i + 1].name + ".md");
}

TEST(Pages, EveryListAndEveryFichaHasItsPage) {
  std::vector<std::string> subjects = zorCrmParvel::Sistema::ChavesDasListas();
  for (const char* ficha : {"Seguros", "frmArquivo", "frm_Attach", "Inicio"}) subjects.emplace_back(ficha);
  for (const std::string& subject : subjects)
    EXPECT_NE(PageAbout(subject).name, kIndex) << "no page names " << subject << " in its first line";
  EXPECT_EQ(PageAbout("Gastos").name, "abastecimento");
  EXPECT_EQ(PageAbout("outra coisa").name, kIndex);
}

TEST(Pages, EveryDialogNamesASubjectThatHasAPage) {
  const std::regex dialog(": QDialog\\(|\\bQDialog dialog\\(");
  const std::regex name("setObjectName\\(QStringLiteral\\(\"([^\"]*)\"\\)|setObjectName\\((ToQt\\(form)");
  int dialogs = 0;
  const std::filesystem::path desktop = std::filesystem::path(PARVEL_SOURCE_DIR) / "src/desktop";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(desktop)) {
    if (entry.path().extension() != ".cpp" || entry.path().stem() == "manual_reader") continue;
    std::ifstream in(entry.path());
    const std::string source(std::istreambuf_iterator<char>(in), {});
    if (!std::regex_search(source, dialog)) continue;
    ++dialogs;
    std::smatch named;
    ASSERT_TRUE(std::regex_search(source, named, name)) << entry.path();
    EXPECT_TRUE(named[2].matched || PageAbout(named[1].str()).name != kIndex) << entry.path();
  }
  EXPECT_GT(dialogs, 15);
}

TEST(Pages, NoSubjectHasTwoPagesAndNoneIsShown) {
  std::set<std::string> seen;
  for (const Page& page : Pages()) {
    EXPECT_EQ(page.text.find("<!--"), std::string::npos) << page.name;
    for (const std::string& subject : page.subjects)
      EXPECT_TRUE(seen.insert(subject).second) << page.name << ": " << subject;
  }
}

}  // namespace
