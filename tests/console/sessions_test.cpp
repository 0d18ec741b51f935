// What a terminal shows, whole: the commands of sessions.txt, one after the other on one fleet.

#include <filesystem>
#include <fstream>
#include <iomanip>

#include "console/program_fixture.h"
#include "support/files.h"
#include "support/whole_text.h"

namespace console {
namespace {

constexpr const char* kText = PARVEL_SOURCE_DIR "/tests/console/sessions.txt";

class SessionsTest : public ProgramFixture {
 protected:
  /// The files that the commands name.
  SessionsTest() { std::filesystem::copy(PARVEL_SOURCE_DIR "/tests/console/files", File("")); }
  std::string Shown(std::string text, const char* before) const {
    const std::string here = File("");
    for (std::size_t at; (at = text.find(here)) != std::string::npos;)
      text.replace(at, here.size(), "PASTA/");
    std::string lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines += before + line + "\n";
    return lines;
  }
  /// Runs a line of words, those with blanks in quotes. What stands behind "> " is the file that the output
  /// goes to.
  std::string Run(std::string line) {
    for (std::size_t at; (at = line.find("PASTA/")) != std::string::npos;) line.replace(at, 6, File(""));
    std::istringstream words(line);
    std::vector<std::string> arguments;
    for (std::string word; words >> std::quoted(word) && word != ">";) arguments.push_back(word);
    const int code = OnDatabase(arguments);
    if (std::string file; words >> file) {
      std::ofstream(file) << out.str();
      out.str("");
    }
    return Shown(out.str(), "") + Shown(err.str(), "! ") +
           (code == kDone ? "" : "[" + std::to_string(code) + "]\n");
  }
};

TEST_F(SessionsTest, EachCommandShowsWhatItShould) {
  std::istringstream session(testing_support::Contents(kText));
  std::string text;
  for (std::string line; std::getline(session, line);) {
    if (line.starts_with("$ ")) text += line + "\n" + Run(line.substr(2)) + "\n";
    if (line.starts_with("= ")) text += line + "\n\n";
    if (line.starts_with("< "))
      text += line + "\n" + Shown(testing_support::Contents(File(line.substr(8))), "") + "\n";
  }
  testing_support::ExpectWholeText(kText, text);
}

}  // namespace
}  // namespace console
