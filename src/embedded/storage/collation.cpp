#include "embedded/storage/collation.h"

#include <unicode/ucol.h>

#include <algorithm>
#include <numeric>
#include <vector>

#include "embedded/storage/sqlite.h"
#include "platform/runtime_error.h"

namespace embedded {
namespace {

constexpr std::uint8_t kIgnored = 0;    // control characters have no place in the order
constexpr std::uint8_t kByRules = 255;  // bytes of characters beyond ASCII

std::string_view WithoutTrailingBlanks(std::string_view text) {
  std::size_t length = text.size();
  while (length > 0 && text[length - 1] == ' ') --length;
  return text.substr(0, length);
}

int SqliteCompare(void* collation, int lengthA, const void* a, int lengthB, const void* b) {
  return static_cast<const ServerCollation*>(collation)->Compare(
      {static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
      {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

}  // namespace

void ServerCollation::Closer::operator()(UCollator* collator) const { ucol_close(collator); }

const ServerCollation& ServerCollation::Instance() {
  static const ServerCollation collation;
  return collation;
}

ServerCollation::ServerCollation() {
  UErrorCode status = U_ZERO_ERROR;
  collator_.reset(ucol_open("", &status));
  if (U_FAILURE(status))
    throw platform::RuntimeError(platform::kEngineFailure, u_errorName(status),
                                 "Faltam as regras de ordenação de texto (ICU). Instale de novo o programa.");
  ucol_setStrength(collator_.get(), UCOL_SECONDARY);
  UVersionInfo version;
  ucol_getVersion(collator_.get(), version);
  for (const std::uint8_t part : version) version_ += (version_.empty() ? "" : ".") + std::to_string(part);
  RankAscii();
}

void ServerCollation::RankAscii() {
  rank_.fill(kByRules);
  std::vector<char> order(128);
  std::iota(order.begin(), order.end(), '\0');
  const auto compare = [this](char a, char b) { return CompareByRules({&a, 1}, {&b, 1}); };
  std::stable_sort(order.begin(), order.end(), [&](char a, char b) { return compare(a, b) < 0; });
  std::uint8_t rank = kIgnored;
  for (std::size_t i = 0; i < order.size(); ++i) {
    const bool ignored = CompareByRules({&order[i], 1}, {}) == 0;
    if (!ignored && (rank == kIgnored || compare(order[i - 1], order[i]) != 0)) ++rank;
    rank_[static_cast<unsigned char>(order[i])] = ignored ? kIgnored : rank;
  }
}

int ServerCollation::CompareByRules(std::string_view a, std::string_view b) const {
  UErrorCode status = U_ZERO_ERROR;
  return ucol_strcollUTF8(collator_.get(), a.data(), static_cast<std::int32_t>(a.size()), b.data(),
                          static_cast<std::int32_t>(b.size()), &status);
}

// ASCII letters, digits and marks have a weight each and form no groups, so the first two that differ decide:
// unless a character beyond ASCII follows, which can change the one before it.
int ServerCollation::Compare(std::string_view a, std::string_view b) const {
  a = WithoutTrailingBlanks(a);
  b = WithoutTrailingBlanks(b);
  const auto rankAt = [this](std::string_view text, std::size_t at) {
    return at < text.size() ? rank_[static_cast<unsigned char>(text[at])] : kIgnored;
  };
  const std::size_t common = std::min(a.size(), b.size());
  std::size_t i = 0;
  while (i < common && a[i] == b[i] && a[i] > 0) ++i;
  for (std::size_t j = i; i < a.size() || j < b.size();) {
    const std::uint8_t x = rankAt(a, i);
    const std::uint8_t y = rankAt(b, j);
    if (x == kByRules || y == kByRules) return CompareByRules(a, b);
    if (x == y) {
      ++i;
      ++j;
    } else if (x == kIgnored && i < a.size()) {
      ++i;
    } else if (y == kIgnored && j < b.size()) {
      ++j;
    } else {
      if (rankAt(a, i + 1) == kByRules || rankAt(b, j + 1) == kByRules) return CompareByRules(a, b);
      return x < y ? -1 : 1;
    }
  }
  return 0;
}

void RegisterCollation(sqlite3* connection) {
  auto* collation = const_cast<ServerCollation*>(&ServerCollation::Instance());  // only ever read
  const int code =
      sqlite3_create_collation_v2(connection, "SERVER", SQLITE_UTF8, collation, &SqliteCompare, nullptr);
  if (code != SQLITE_OK) RaiseSqlite(connection, code);
}

}  // namespace embedded
