#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "manual/pages.h"

namespace manual {

/// A place in the manual: a page and a paragraph of it, as plain text.
struct Hit {
  const Page* page;
  std::string paragraph;
};

/// The pages that hold all the words, in any order and without regard to case and accents; those first that
/// have them in their title, then those that have them in one paragraph. Nothing for no words.
std::vector<Hit> Search(std::string_view words);

/// Where a message of the program is explained; its changing parts stand as "…" in the manual.
std::optional<Hit> FindMessage(std::string_view shown);

}  // namespace manual
