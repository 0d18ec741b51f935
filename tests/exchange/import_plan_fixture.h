#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "exchange/import_fixture.h"
#include "exchange/plan/import_plan.h"
#include "exchange/shape/profile_guess.h"
#include "exchange/table_files.h"

namespace exchange {

/// A plan of a file, read by what is guessed of it.
class ImportPlanTest : public ImportTest {
 protected:
  /// A file of expenses, or of another kind, read by what is guessed of it.
  ImportPlan& Read(const std::string& csv, const std::function<void(Profile&)>& change = {},
                   const char* kind = "gastos") {
    return ReadFile(files.Put("a.csv", csv), change, kind);
  }
  ImportPlan& ReadFile(const std::string& file, const std::function<void(Profile&)>& change,
                       const char* kind) {
    std::vector<TableRow> rows;
    const auto reader = OpenTable(file);
    for (TableRow row; reader->Next(row);) rows.push_back(row);
    Profile profile = GuessProfile(*KindOf(kind), rows);
    if (change) change(profile);
    plan = std::make_unique<ImportPlan>(bd, profile);
    plan->Load(*OpenTable(file));
    return *plan;
  }
  /// Each row's line, state and reason.
  std::string States() const {
    std::string all;
    for (std::size_t i = 0; i < plan->size(); ++i)
      all += std::to_string(plan->row(i).line) + " " + NameOf(plan->row(i).state) +
             (plan->why(i).reason.empty() ? "" : " " + plan->why(i).column + ": " + plan->why(i).reason) +
             "\n";
    return all;
  }
  long Expenses() { return static_cast<long>(Rows(bd, "SELECT Gst_Id FROM zor_PV_Gastos").size()); }

  TableFiles files;
  std::unique_ptr<ImportPlan> plan;
};

}  // namespace exchange
