#pragma once

#include <cstdint>

/// The server's arithmetic of money, on counts of ten-thousandths. What does not fit raises error
/// -2147217900.
namespace embedded {

std::int64_t AddMoney(std::int64_t a, std::int64_t b);
std::int64_t SubtractMoney(std::int64_t a, std::int64_t b);
/// Exact, then rounded to four decimals, a tie away from zero.
std::int64_t MultiplyMoney(std::int64_t a, std::int64_t b);
/// Cut after the fourth decimal. Division by zero is an error too.
std::int64_t DivideMoney(std::int64_t a, std::int64_t b);

}  // namespace embedded
