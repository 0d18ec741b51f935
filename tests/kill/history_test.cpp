#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
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

/// A fleet that nobody has worked with yet.
class HistoryTest : public testing::Test {
 protected:
  HistoryTest() {
    RunKilled(0,
              [&](const Tell&) { AddFleet(DataAccessRef(Open(before.File("frota.db"))->inner()), 10000); });
    atFirst = Everything(Open(before.File("frota.db")));
  }

  /// What was told is in the history, and undoing all that is in it leaves the fleet as it was.
  void ExpectWhole(const std::string& file, const std::vector<std::string>& told) const {
    const auto store = Open(file);
    for (const std::string& line : told) EXPECT_TRUE(history::ReadOperation(*store, std::stol(line))) << line;
    EXPECT_TRUE(history::CheckFigures(store, false).empty());
    for (const history::Operation& each : history::ReadOperations(*store, history::Filter()).operations)
      if (each.undoes == 0 && each.undoneBy == 0) history::Undo(store, each.number);
    EXPECT_EQ(Everything(store), atFirst);
  }

  TemporaryFolder before;
  std::map<std::string, Table> atFirst;
};

TEST_F(HistoryTest, NeverHoldsLessNorMoreThanWasWritten) {
  const auto run = [&](int killAt) {
    SCOPED_TRACE("killed at step " + std::to_string(killAt));
    const TemporaryFolder folder;
    fs::copy(before.File(""), folder.File(""), fs::copy_options::recursive);
    const std::string file = folder.File("frota.db");
    const Told told = RunKilled(killAt, [&](const Tell& tell) { Work(file, tell); });
    ExpectWhole(file, told.lines);
    return told.steps;
  };
  const int steps = run(0);
  ASSERT_GT(steps, 0);
  const int kills = std::min(steps, kMostKills);
  for (int i = 0; i < kills; ++i) run(1 + i * steps / kills);
}

/// A disk of some megabytes that this program alone sees. False where that is not allowed.
bool MountSmallDisk(const std::string& folder) {
  const bool own = unshare(CLONE_NEWNS) == 0 || unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0;
  return own && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=4m") == 0;
}

/// Fills the disk up to some bytes.
void FillDisk(const std::string& file, std::uintmax_t free) {
  {
    std::ofstream filler(file, std::ios::binary);
    const std::string block(4096, 'x');
    while (filler.write(block.data(), static_cast<std::streamsize>(block.size())).flush()) continue;
  }
  fs::resize_file(file, fs::file_size(file) - std::min(free, fs::file_size(file)));
}

TEST_F(HistoryTest, NeverHoldsLessNorMoreOnAFullDisk) {
  constexpr int kNotAllowed = 77;
  constexpr std::uintmax_t kPage = 4096;
  const TemporaryFolder disk;
  const pid_t child = fork();
  if (child == 0) {
    if (!MountSmallDisk(disk.File(""))) _exit(kNotAllowed);
    const std::string file = disk.File("frota.db");
    int stopped = 0;
    for (std::uintmax_t free = 0; free < 100 * kPage; free += kPage) {
      SCOPED_TRACE(std::to_string(free) + " bytes free");
      for (const auto& each : fs::directory_iterator(disk.File(""))) fs::remove(each);
      fs::copy(before.File(""), disk.File(""), fs::copy_options::recursive);
      FillDisk(disk.File("cheio"), free);
      std::vector<std::string> told;
      try {
        Work(file, [&](const std::string& line) { told.push_back(line); });
      } catch (const platform::RuntimeError&) {
        if (!told.empty()) ++stopped;
      }
      fs::remove(disk.File("cheio"));
      ExpectWhole(file, told);
    }
    EXPECT_GT(stopped, 0) << "the disk was never full between two acts";
    _exit(HasFailure() ? 1 : 0);
  }
  int status = -1;
  waitpid(child, &status, 0);
  if (WIFEXITED(status) && WEXITSTATUS(status) == kNotAllowed) GTEST_SKIP() << "no disk may be mounted here";
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace kill_tests
