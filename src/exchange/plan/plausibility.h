#pragma once

#include <string>
#include <vector>

#include "exchange/plan/plan_data.h"

namespace exchange {

/// Warns of expenses that pass all rules and are odd all the same, by the rules of the exceptions report:
/// what it would say of them once they are stored.
class Plausibility {
 public:
  /// Beyond so many rows nothing is looked at: a file of years is no statement of a month.
  static constexpr std::size_t kMostRows = 20000;
  explicit Plausibility(PlanData& plan) : plan_(plan) {}

  /// An expense that would be stored.
  void Add(std::size_t row, const ImportRow& values);
  /// After the last: rows with something odd become ones with a warning.
  void Warn();

 private:
  struct Expense {
    std::size_t row;
    std::string plate, type, driver;
    platform::Date date;
    platform::Currency quantity, km, price, cost;
  };
  PlanData& plan_;
  std::vector<Expense> expenses_;
};

}  // namespace exchange
