#include "lists/condition.h"

#include <algorithm>

#include "lists/words.h"
#include "platform/text.h"

namespace lists {
namespace {

std::string Quoted(const std::string& text) {
  const bool plain = text.find_first_of(";\"") == std::string::npos && platform::Trim(text) == text;
  if (plain) return text;
  std::string quoted = "\"";
  for (char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + '"';
}

bool IsChoice(const std::string& text) { return text.starts_with('='); }

std::vector<std::string> AllFolded(const std::vector<std::string>& texts) {
  std::vector<std::string> folded;
  folded.reserve(texts.size());
  for (const std::string& text : texts) folded.push_back(Folded(text));
  return folded;
}

}  // namespace

std::string ChoiceOf(const std::vector<std::string>& texts) {
  std::string choice = "=";
  for (const std::string& text : texts) choice += (choice.size() == 1 ? " " : "; ") + Quoted(text);
  return choice;
}

std::vector<std::string> ChosenTexts(const std::string& text) {
  if (!IsChoice(text)) return {};
  std::vector<std::string> texts;
  std::string one;
  bool quoted = false;
  bool was_quoted = false;
  const auto end = [&] {
    texts.push_back(was_quoted ? one : platform::Trim(one));
    one.clear();
    was_quoted = false;
  };
  for (std::size_t i = 1; i < text.size(); ++i) {
    const bool mark = text[i] == '"';
    if (mark && quoted && i + 1 < text.size() && text[i + 1] == '"') {
      one += text[i++];
    } else if (mark && (quoted || platform::Trim(one).empty())) {
      if (!quoted) one.clear();
      quoted = !quoted;
      was_quoted = true;
    } else if (text[i] == ';' && !quoted) {
      end();
    } else if (quoted || !was_quoted) {
      one += text[i];
    }
  }
  end();
  return texts;
}

std::string ConditionInWords(const std::string& text) {
  if (!IsChoice(text)) return text;
  std::string words;
  for (const std::string& chosen : ChosenTexts(text))
    words += (words.empty() ? "" : "; ") + (chosen.empty() ? kNothingThere : chosen);
  return words;
}

Condition::Condition(const std::string& text, Kind kind, platform::Date today) {
  const std::string trimmed = platform::Trim(text);
  if (IsChoice(trimmed)) {
    one_of_ = true;
    words_ = AllFolded(ChosenTexts(trimmed));
  } else if (kind == Kind::kText) {
    words_ = FoldedWords(trimmed);
  } else {
    by_range_ = true;
    range_ = kind == Kind::kDate ? DateRange(trimmed, today) : NumberRange(trimmed);
  }
}

std::vector<char> Condition::Met(Column& column) const {
  if (!by_range_) return MetByText(column);
  std::vector<char> met;
  met.reserve(column.numbers().size());
  for (double number : column.numbers())
    met.push_back(
        static_cast<char>(number >= range_.first && number < range_.second));  // nothing is in no range
  return met;
}

/// Each different text is looked at once.
std::vector<char> Condition::MetByText(Column& column) const {
  std::vector<char> by_code;
  by_code.reserve(column.texts().size());
  for (const std::string& text : column.texts()) {
    const std::string folded = Folded(text);
    const auto held = [&folded](const std::string& word) { return folded.find(word) != std::string::npos; };
    by_code.push_back(static_cast<char>(one_of_
                                            ? std::find(words_.begin(), words_.end(), folded) != words_.end()
                                            : std::all_of(words_.begin(), words_.end(), held)));
  }
  std::vector<char> met;
  met.reserve(column.codes().size());
  for (std::uint32_t code : column.codes()) met.push_back(by_code[code]);
  return met;
}

}  // namespace lists
