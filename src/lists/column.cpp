#include "lists/column.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <string_view>
#include <unordered_map>

#include "lists/number_text.h"
#include "lists/words.h"

namespace lists {
namespace {

using platform::Date;
using platform::Variant;

constexpr double kNothing = std::numeric_limits<double>::quiet_NaN();

bool IsBlank(const Variant& value) {
  const std::string* text = value.As<std::string>();
  return value.IsNull() || value.IsEmpty() || (text != nullptr && text->empty());
}

/// What a value is, taken alone, and as a number.
std::pair<Kind, double> Read(const Variant& value) {
  if (const Date* date = value.As<Date>()) return {Kind::kDate, static_cast<double>(date->seconds())};
  if (const std::string* text = value.As<std::string>()) {
    Date date;
    const bool written =
        !text->empty() && text->front() >= '0' && text->front() <= '9' && Date::TryParse(*text, date);
    return {written ? Kind::kDate : Kind::kText, written ? static_cast<double>(date.seconds()) : kNothing};
  }
  if (value.As<platform::Bytes>() != nullptr) return {Kind::kText, kNothing};
  return {Kind::kNumber, value.ToDouble()};
}

/// Gives each different text its code.
class Codes {
 public:
  explicit Codes(std::vector<std::string>& texts) : texts_(texts) {}
  std::uint32_t Of(std::string text) {
    const auto [found, added] =
        codes_.try_emplace(std::move(text), static_cast<std::uint32_t>(codes_.size()));
    if (added) texts_.push_back(found->first);
    return found->second;
  }

 private:
  std::vector<std::string>& texts_;
  std::unordered_map<std::string, std::uint32_t> codes_;
};

}  // namespace

Column::Column(const Cells& cells, std::size_t column) : cells_(cells), column_(column) {
  cells_.AboutToRead(column);
  const long rows = cells.Rows();
  numbers_.reserve(static_cast<std::size_t>(rows));
  kind_ = Kind::kText;
  for (long row = 0; row < rows; ++row) {
    const Variant value = cells.Value(row, column);
    if (IsBlank(value)) {
      numbers_.push_back(kNothing);
      continue;
    }
    const auto [one, number] = Read(value);
    if (kind_ == Kind::kText) kind_ = one;  // the first value's
    if (one == Kind::kText || one != kind_) {
      kind_ = Kind::kText;
      break;
    }
    numbers_.push_back(number);
  }
  if (kind_ == Kind::kText) numbers_.clear();
}

const std::vector<std::uint32_t>& Column::codes() {
  if (!coded_) MakeCodes();
  return codes_;
}

const std::vector<std::string>& Column::texts() {
  if (!coded_) MakeCodes();
  return texts_;
}

void Column::MakeCodes() {
  coded_ = true;
  const long rows = cells_.Rows();
  codes_.reserve(static_cast<std::size_t>(rows));
  Codes codes(texts_);
  if (kind_ == Kind::kText) {
    for (long row = 0; row < rows; ++row) codes_.push_back(codes.Of(cells_.Shown(row, column_)));
    return;
  }
  // Equal numbers are shown alike: each is made a text once.
  std::unordered_map<std::uint64_t, std::uint32_t> known;
  for (long row = 0; row < rows; ++row) {
    const auto bits = std::bit_cast<std::uint64_t>(numbers_[static_cast<std::size_t>(row)]);
    auto found = known.find(bits);
    if (found == known.end()) found = known.emplace(bits, codes.Of(cells_.Shown(row, column_))).first;
    codes_.push_back(found->second);
  }
}

/// Each different text is looked at once; numbers are mostly different, and aren't made texts for this.
std::vector<char> Column::Holding(const std::string& word) {
  if (kind_ != Kind::kText && !coded_) {
    NumberText text(cells_, column_, kind_, numbers_);
    if (text.IsKnown()) return NumbersHolding(text, word);
  }
  std::vector<char> by_code;
  by_code.reserve(texts().size());
  for (const std::string& text : texts())
    by_code.push_back(static_cast<char>(Folded(text).find(word) != std::string::npos));
  std::vector<char> holding;
  holding.reserve(codes().size());
  for (std::uint32_t code : codes()) holding.push_back(by_code[code]);
  return holding;
}

std::vector<char> Column::NumbersHolding(NumberText& text, const std::string& word) const {
  std::vector<char> holding;
  holding.reserve(numbers_.size());
  const bool possible = text.CanHold(word);
  for (double number : numbers_) {
    if (!possible && NumberText::IsPlain(number)) {
      holding.push_back(0);
      continue;
    }
    const auto written = text.Of(number);
    const auto row = static_cast<long>(holding.size());
    holding.push_back(
        static_cast<char>(written ? written->find(word) != std::string_view::npos
                                  : Folded(cells_.Shown(row, column_)).find(word) != std::string::npos));
  }
  return holding;
}

const std::vector<std::uint32_t>& Column::ranks() {
  if (!ranks_.empty() || texts().empty()) return ranks_;
  std::vector<std::string> keys;
  keys.reserve(texts_.size());
  for (const std::string& text : texts_) keys.push_back(OrderKey(text));
  std::vector<std::uint32_t> order(texts_.size());
  std::iota(order.begin(), order.end(), 0U);
  std::sort(order.begin(), order.end(), [&keys](auto a, auto b) { return keys[a] < keys[b]; });
  ranks_.resize(order.size());
  // Texts that differ by case alone have one place: their rows keep the table's order.
  std::uint32_t rank = 0;
  for (std::size_t place = 0; place < order.size(); ++place) {
    if (place > 0 && keys[order[place]] != keys[order[place - 1]]) ++rank;
    ranks_[order[place]] = rank;
  }
  return ranks_;
}

}  // namespace lists
