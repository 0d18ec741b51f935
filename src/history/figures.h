#pragma once

#include <memory>
#include <string>
#include <vector>

#include "history/keeping_store.h"

namespace history {

/// True for a figure of a vehicle that is computed from its events.
bool IsFigure(const tsql::Table& table, const tsql::Column& column);

/// A vehicle whose figures are not what a recalculation gives.
struct WrongFigures {
  std::string plate;
  std::vector<std::string> lines;  // "CustoTotal: 166 → 14 301", each figure that differs
};

/// Compares the figures of every vehicle with a recalculation, as the save of an expense gives them, or with
/// the total that the save of a revision gives; a vehicle without expenses has none to compare. With
/// `correct` they are stored, an operation for each vehicle.
std::vector<WrongFigures> CheckFigures(const std::shared_ptr<KeepingStore>& store, bool correct);

}  // namespace history
