#include "manual/search.h"

#include <algorithm>
#include <sstream>

#include "manual/plain_text.h"

namespace manual {
namespace {

constexpr std::string_view kChanging = "…";

/// How well a page answers, the best first.
enum Rank { kInTitle, kInParagraph, kOnPage, kNowhere };

struct Found {
  Rank rank;
  Hit hit;
};

bool HasAll(const std::string& folded, const std::vector<std::string>& words) {
  return std::all_of(words.begin(), words.end(),
                     [&](const std::string& word) { return folded.find(word) != std::string::npos; });
}

bool HasAny(const std::string& folded, const std::vector<std::string>& words) {
  return std::any_of(words.begin(), words.end(),
                     [&](const std::string& word) { return folded.find(word) != std::string::npos; });
}

/// The paragraph shown is the first with all words, or else the first with one of them; the title is one.
Found Look(const Page& page, const std::vector<std::string>& words) {
  Found found{kNowhere, {&page, {}}};
  const bool in_title = HasAll(Folded(page.title), words);
  if (!in_title && !HasAll(Folded(page.text), words)) return found;
  found.rank = in_title ? kInTitle : kOnPage;
  const std::vector<std::string> paragraphs = Paragraphs(page.text);
  for (std::size_t i = 1; i < paragraphs.size(); ++i) {
    const std::string folded = Folded(paragraphs[i]);
    if (HasAll(folded, words)) {
      found.hit.paragraph = paragraphs[i];
      if (!in_title) found.rank = kInParagraph;
      break;
    }
    if (found.hit.paragraph.empty() && HasAny(folded, words)) found.hit.paragraph = paragraphs[i];
  }
  return found;
}

/// How much of a shown text a paragraph says, in its order: the length of its fixed words, or 0 when one of
/// them is missing.
std::size_t Share(const std::string& shown, const std::string& paragraph) {
  std::size_t from = 0;
  std::size_t share = 0;
  for (std::size_t begin = 0; begin < paragraph.size();) {
    const std::size_t end = std::min(paragraph.find(kChanging, begin), paragraph.size());
    const std::string words = paragraph.substr(begin, end - begin);
    begin = end + kChanging.size();
    const std::size_t found = shown.find(words, from);
    if (found == std::string::npos) return 0;
    from = found + words.size();
    share += words.size();
  }
  return share;
}

}  // namespace

std::vector<Hit> Search(std::string_view words) {
  std::istringstream text(Folded(words));
  std::vector<std::string> wanted;
  for (std::string word; text >> word;) wanted.push_back(word);
  if (wanted.empty()) return {};
  std::vector<Found> found;
  for (const Page& page : Pages()) found.push_back(Look(page, wanted));
  std::stable_sort(found.begin(), found.end(),
                   [](const Found& a, const Found& b) { return a.rank < b.rank; });
  std::vector<Hit> hits;
  for (Found& each : found)
    if (each.rank != kNowhere) hits.push_back(std::move(each.hit));
  return hits;
}

std::optional<Hit> FindMessage(std::string_view shown) {
  constexpr std::size_t kLeast = 12;  // bytes: fewer fixed words may stand anywhere
  const std::string folded = Folded(shown);
  std::optional<Hit> best;
  std::size_t most = kLeast;
  for (const Page& page : Pages()) {
    for (const std::string& paragraph : Paragraphs(page.text)) {
      const std::size_t share = Share(folded, Folded(paragraph));
      if (share <= most) continue;
      most = share;
      best = Hit{&page, paragraph};
    }
  }
  return best;
}

}  // namespace manual
