#include "host/error_text.h"

#include <gtest/gtest.h>

#include "support/whole_text.h"

namespace zorCrmParvel {
namespace {

/// An error by "number | source | words"; without words it has those of its number.
platform::RuntimeError ErrorOf(const std::string& input) {
  const std::size_t source = input.find(" | ");
  const std::size_t words = input.find(" | ", source + 3);
  const int number = std::stoi(input);
  const std::string description = words + 3 < input.size() ? input.substr(words + 3) : "";
  return {number, input.substr(source + 3, words - source - 3),
          description.empty() ? platform::RuntimeError::StandardText(number) : description};
}

TEST(TextOf, TellsASentenceAndKeepsNumberAndWordsApart) {
  testing_support::ExpectCases(PARVEL_SOURCE_DIR "/tests/host/errors.txt", [](const std::string& input) {
    ErrorText text = TextOf(ErrorOf(input));
    EXPECT_EQ(text.message.find('%'), std::string::npos) << text.message;
    for (char& c : text.details)
      if (c == '\n') c = ';';
    return text.message + (text.details.empty() ? "" : " [" + text.details + "]");
  });
  EXPECT_EQ(SourceInField("Custo", "12x"), "O campo «Custo» tem «12x»");
  EXPECT_EQ(SourceInField("", "12x"), "Um dos campos tem «12x»");
}

}  // namespace
}  // namespace zorCrmParvel
