#include "lists/sorting.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <numeric>
#include <utility>

namespace lists {
namespace {

/// Texts: a place for each rank, filled from the top.
std::vector<long> ByRank(Column& column, bool descending) {
  const std::vector<std::uint32_t>& ranks = column.ranks();
  const std::vector<std::uint32_t>& codes = column.codes();
  const std::uint32_t last = ranks.empty() ? 0 : *std::max_element(ranks.begin(), ranks.end());
  const auto rank_of = [&](std::uint32_t code) { return descending ? last - ranks[code] : ranks[code]; };
  std::vector<std::size_t> begins(last + 2, 0);
  for (std::uint32_t code : codes) ++begins[rank_of(code) + 1];
  std::partial_sum(begins.begin(), begins.end(), begins.begin());
  std::vector<long> rows(codes.size());
  for (std::size_t row = 0; row < codes.size(); ++row)
    rows[begins[rank_of(codes[row])]++] = static_cast<long>(row);
  return rows;
}

/// A number as bits that come in the same order; nothing comes before all numbers.
std::uint64_t OrderBits(double number) {
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63U;
  if (number != number) return 0;
  const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);  // no negative zero
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

/// Numbers, with the row behind them, which keeps equal ones apart.
std::vector<long> ByNumber(const std::vector<double>& numbers, bool descending) {
  std::vector<std::pair<std::uint64_t, std::uint32_t>> keys;
  keys.reserve(numbers.size());
  for (std::size_t row = 0; row < numbers.size(); ++row) {
    const std::uint64_t bits = OrderBits(numbers[row]);
    keys.emplace_back(descending ? ~bits : bits, static_cast<std::uint32_t>(row));
  }
  std::sort(keys.begin(), keys.end());
  std::vector<long> rows;
  rows.reserve(keys.size());
  for (const auto& key : keys) rows.push_back(static_cast<long>(key.second));
  return rows;
}

}  // namespace

std::vector<long> Sorted(Column& column, bool descending) {
  return column.kind() == Kind::kText ? ByRank(column, descending) : ByNumber(column.numbers(), descending);
}

bool CanHold(Kind kind, const std::string& word) {
  return kind == Kind::kText || std::none_of(word.begin(), word.end(), [](char c) {
           return (c >= 'a' && c <= 'z') || (c & 0x80) != 0;
         });
}

}  // namespace lists
