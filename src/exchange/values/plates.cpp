#include "exchange/values/plates.h"

#include "exchange/values/fold.h"

namespace exchange {
namespace {

std::string UpperTight(std::string_view plate) {
  std::string upper = FoldedTight(plate);
  for (char& c : upper)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return upper;
}

/// "L", "D" or "" for a pair that mixes them.
char PairKind(std::string_view pair) {
  const auto digit = [](char c) { return c >= '0' && c <= '9'; };
  const auto letter = [](char c) { return c >= 'A' && c <= 'Z'; };
  if (digit(pair[0]) && digit(pair[1])) return 'D';
  return letter(pair[0]) && letter(pair[1]) ? 'L' : ' ';
}

}  // namespace

bool IsPortuguesePlate(std::string_view plate) {
  const std::string tight = UpperTight(plate);
  if (tight.size() != 6) return false;
  const std::string kinds{PairKind(tight.substr(0, 2)), PairKind(tight.substr(2, 2)),
                          PairKind(tight.substr(4, 2))};
  return kinds == "LDD" || kinds == "DDL" || kinds == "DLD" || kinds == "LDL";
}

std::string WrittenPlate(std::string_view plate, bool hyphens) {
  if (!IsPortuguesePlate(plate)) return Stripped(plate);
  const std::string tight = UpperTight(plate);
  if (!hyphens) return tight;
  return tight.substr(0, 2) + "-" + tight.substr(2, 2) + "-" + tight.substr(4);
}

}  // namespace exchange
