#include "embedded/compiler/money.h"

#include <limits>

#include "embedded/compiler/server_error.h"

namespace embedded {
namespace {

__extension__ using Wide = __int128;
constexpr Wide kUnit = 10000;

std::int64_t Fit(Wide value) {
  if (value < std::numeric_limits<std::int64_t>::min() || value > std::numeric_limits<std::int64_t>::max())
    Refuse("Arithmetic overflow error converting expression to data type money.");
  return static_cast<std::int64_t>(value);
}

}  // namespace

std::int64_t AddMoney(std::int64_t a, std::int64_t b) { return Fit(Wide{a} + b); }

std::int64_t SubtractMoney(std::int64_t a, std::int64_t b) { return Fit(Wide{a} - b); }

std::int64_t MultiplyMoney(std::int64_t a, std::int64_t b) {
  const Wide product = Wide{a} * b;
  return Fit((product + (product < 0 ? -kUnit / 2 : kUnit / 2)) / kUnit);
}

std::int64_t DivideMoney(std::int64_t a, std::int64_t b) {
  if (b == 0) Refuse("Divide by zero error encountered.");
  return Fit(Wide{a} * kUnit / b);
}

}  // namespace embedded
