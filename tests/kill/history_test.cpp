#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "embedded/database.h"
#include "events/expense_figures.h"
#include "history/act.h"
#include "history/figures.h"
#include "history/reader.h"
#include "history/undo.h"
#include "program.h"
#include "support/database_test.h"
#include "support/fleet.h"
#include "support/temporary_folder.h"
#include "vehicles/viaturas.h"

namespace kill_tests {
namespace {

namespace fs = std::filesystem;
using namespace testing_support;
using zorCrmParvel::DataAccessRef;

constexpr int kMostKills = 40;

std::shared_ptr<history::KeepingStore> Open(const std::string& file) {
  return std::make_shared<history::KeepingStore>(embedded::Database::Open(file));
}

std::map<std::string, Table> Everything(const std::shared_ptr<history::KeepingStore>& store) {
  std::map<std::string, Table> all;
  for (const tsql::Table& table : store->catalog().tables()) {
    if (table.name.starts_with("parvel_")) continue;
    Table rows = Rows(DataAccessRef(store), "SELECT * FROM " + table.name);
    std::sort(rows.begin(), rows.end());
    all[table.name] = rows;
  }
  return all;
}

/// Expenses saved, a vehicle removed with them, the removal undone.
void Work(const std::string& file, const Tell& tell) {
  const auto store = Open(file);
  const DataAccessRef bd(store);
  for (int i = 0; i < 3; ++i) {
    history::Act(store.get(), "Gastos: Confirmar", [&] {
      AddExpense(bd, "12-AB-34", platform::Date::FromParts(2024, 2, 1 + i), "GASOLEO", "40", "60", 10500 + i);
      zorCrmParvel::RecalcularViatura(bd, "12-AB-34");
    });
    tell(std::to_string(store->LastOperation()));
  }
  history::Act(store.get(), "Viaturas: Remover", [&] {
    zorCrmParvel::clViaturas vehicle;
    vehicle.bd = bd;
    vehicle.Matricula = "12-AB-34";
    vehicle.Anular();
  });
  tell(std::to_string(store->LastOperation()));
  tell(std::to_string(history::Undo(store, store->LastOperation())));
}

TEST(History, NeverHoldsLessNorMoreThanWasWritten) {
  const TemporaryFolder before;
  RunKilled(0, [&](const Tell&) { AddFleet(DataAccessRef(Open(before.File("frota.db"))->inner()), 10000); });
  const auto at_first = Everything(Open(before.File("frota.db")));
  const auto run = [&](int killAt) {
    SCOPED_TRACE("killed at step " + std::to_string(killAt));
    const TemporaryFolder folder;
    fs::copy(before.File(""), folder.File(""), fs::copy_options::recursive);
    const std::string file = folder.File("frota.db");
    const Told told = RunKilled(killAt, [&](const Tell& tell) { Work(file, tell); });
    const auto store = Open(file);
    for (const std::string& line : told.lines)
      EXPECT_TRUE(history::ReadOperation(*store, std::stol(line))) << line;
    EXPECT_TRUE(history::CheckFigures(store, false).empty());
    for (const history::Operation& each : history::ReadOperations(*store, history::Filter()).operations)
      if (each.undoes == 0 && each.undoneBy == 0) history::Undo(store, each.number);
    EXPECT_EQ(Everything(store), at_first);
    return told.steps;
  };
  const int steps = run(0);
  ASSERT_GT(steps, 0);
  const int kills = std::min(steps, kMostKills);
  for (int i = 0; i < kills; ++i) run(1 + i * steps / kills);
}

}  // namespace
}  // namespace kill_tests
