#include "exchange/shape/column_words.h"

#include <algorithm>

#include "exchange/shape/column_synonyms.h"
#include "exchange/values/fold.h"

namespace exchange {
namespace {

const ColumnWords* WordsOf(const ImportKind& kind, std::string_view column) {
  const ColumnWords* general = nullptr;
  const std::string wanted = "|" + std::string(kind.name) + "|";
  for (const ColumnWords& words : kColumnWords) {
    if (column != words.column) continue;
    if (words.kinds.empty()) general = &words;
    if (words.kinds.find(wanted) != std::string_view::npos) return &words;
  }
  return general;
}

/// True when the words of one stand among those of the other, in their order and together.
bool Holds(const std::string& heading, std::string_view words) {
  const std::string padded = " " + heading + " ";
  return padded.find(" " + std::string(words) + " ") != std::string::npos;
}

}  // namespace

std::string LabelOf(const ImportKind& kind, std::string_view column) {
  const ColumnWords* words = WordsOf(kind, column);
  return words != nullptr ? std::string(words->label) : std::string(column);
}

int Fit(const ImportKind& kind, std::string_view column, std::string_view heading) {
  const std::string folded = Folded(heading);
  if (folded.empty()) return 0;
  if (FoldedTight(heading) == FoldedTight(column)) return 100;
  const ColumnWords* words = WordsOf(kind, column);
  if (words == nullptr) return 0;
  int best = folded == Folded(words->label) ? 95 : 0;
  int place = 0;
  for (std::string_view rest = words->words; !rest.empty(); ++place) {
    const std::string_view word = rest.substr(0, rest.find('|'));
    if (folded == word)
      best = std::max(best, 90 - std::min(place, 20));
    else if (word.size() >= 3 && Holds(folded, word))
      best =
          std::max(best, 40 + static_cast<int>(std::min(word.size(), std::size_t{20})) - std::min(place, 10));
    rest.remove_prefix(std::min(word.size() + 1, rest.size()));
  }
  return best;
}

}  // namespace exchange
