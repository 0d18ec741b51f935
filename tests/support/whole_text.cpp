#include "support/whole_text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "support/files.h"

namespace testing_support {

void ExpectWholeText(const std::string& file, const std::string& text) {
  if (std::getenv("PARVEL_ESCREVER_TEXTOS") != nullptr) {
    std::ofstream(file, std::ios::binary) << text;
    return;
  }
  std::istringstream wanted(Contents(file));
  std::istringstream found(text);
  std::string heading;
  int differences = 0;
  for (int number = 1; differences < 3; ++number) {
    std::string want;
    std::string find;
    const bool more = static_cast<bool>(std::getline(wanted, want));
    if (!std::getline(found, find) && !more) return;
    if (find.rfind("= ", 0) == 0) heading = find;
    if (want == find) continue;
    ADD_FAILURE() << file << ":" << number << " " << heading << "\n- " << want << "\n+ " << find;
    ++differences;
  }
}

void ExpectCases(const std::string& file,
                 const std::function<std::string(const std::string& input)>& outcome) {
  std::istringstream cases(Contents(file));
  std::string text;
  for (std::string line; std::getline(cases, line); text += line + "\n")
    if (const auto mark = line.find(" =>"); mark != std::string::npos) {
      const std::string input = line.substr(0, mark);
      line = input + " => " + outcome(input);
    }
  EXPECT_FALSE(text.empty()) << file;
  ExpectWholeText(file, text);
}

}  // namespace testing_support
