#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "console/program.h"
#include "embedded/database.h"
#include "program.h"
#include "steps.h"
#include "support/engine_tables.h"
#include "support/temporary_folder.h"

namespace kill_tests {
namespace {

namespace fs = std::filesystem;
using embedded::Database;
using testing_support::TemporaryFolder;

constexpr int kMostKills = 40;
constexpr const char* kNewer =
    "-- versão 4\nCREATE TABLE Codigos (Codigo nvarchar(12) NOT NULL, Nome nvarchar(60) NOT NULL, "
    "CONSTRAINT PK_Codigos PRIMARY KEY (Codigo, Nome));\nCREATE INDEX IX ON Codigos (Nome);";

embedded::OpenOptions Options(const std::string& schema = testing_support::EngineTables()) {
  embedded::OpenOptions options;
  options.schema = schema;
  options.logLimit = 60'000;
  return options;
}

void Save(const std::shared_ptr<Database>& database, const std::string& code) {
  database->ExecutarSql("", ("INSERT INTO Codigos (Codigo, Nome) VALUES ('" + code + "', '" + code +
                             std::string(30, 'n') + "')")
                                .c_str());
}

std::string Codes(const std::string& file, const std::string& schema = testing_support::EngineTables()) {
  std::string codes;
  for (const auto& row : testing_support::Rows(Database::Open(file, Options(schema)),
                                               "SELECT Codigo FROM Codigos ORDER BY Codigo"))
    codes += row.at(0) + ' ';
  return codes;
}

/// The files of one program's life.
struct Files {
  const TemporaryFolder& folder;
  std::string file = folder.File("frota.db");
  std::string copy = folder.File("copia.db");
  std::string csv = folder.File("viaturas.csv");
};

/// What is there before, what the program does and tells, and what must hold whenever it was killed.
struct Story {
  const char* name;
  std::function<void(const Files&)> before;
  std::function<void(const Files&, const Tell&)> act;
  std::function<void(const Files&, const Told&)> holds;
};

void PrintTo(const Story& story, std::ostream* out) { *out << story.name; }

void SaveSome(const Files& files, bool killed) {
  const auto save = [&](const Tell&) {
    const auto database = Database::Open(files.file, Options());
    for (const char* code : {"A", "B", "C"}) Save(database, code);
    database->CopyTo(files.copy);
    if (killed) Save(database, "D");
    if (killed) _exit(0);
  };
  RunKilled(0, save);
}

void Create(const Files& files, const Tell& tell) {
  const auto database = Database::Open(files.file, Options());
  tell("open");
  for (const char* code : {"A", "B"}) {
    Save(database, code);
    tell(code);
  }
}

void SaveMany(const Files& files, const Tell& tell) {
  const auto database = Database::Open(files.file, Options());
  for (int i = 100; i < 160; ++i) {
    Save(database, std::to_string(i));
    tell(std::to_string(i));
  }
}

void EveryTold(const Files& files, const Told& told) {
  const std::string codes = Codes(files.file);
  for (const std::string& code : told.lines)
    EXPECT_TRUE(code == "open" || codes.find(code + ' ') != std::string::npos) << code << " of " << codes;
}

void Restored(const Files& files, const Told& told) {
  const std::string codes = Codes(files.file);
  EXPECT_TRUE(codes == "A B C " || !told.Has("restored")) << codes;
  if (codes == "A B C D ") return;
  EXPECT_EQ(codes, "A B C ");
  std::string aside;
  for (const auto& entry : fs::directory_iterator(files.folder.File("")))
    if (entry.path().string().find(".antes-") != std::string::npos &&
        !entry.path().string().ends_with("-wal") && !entry.path().string().ends_with("-shm"))
      aside = entry.path();
  EXPECT_EQ(Codes(aside), "A B C D ");
}

int Parvel(const Files& files, const std::vector<std::string>& words, std::string& out) {
  std::ostringstream result, errors;
  std::vector<std::string> all{"--db", files.file};
  all.insert(all.end(), words.begin(), words.end());
  const int code = console::Run(all, result, errors);
  out = result.str() + errors.str();
  return code;
}

void Import(const Files& files, const Tell& tell) {
  std::string out;
  const int code = Parvel(files, {"importar", "viaturas", files.csv}, out);
  tell(code == 0 ? "imported" : "!" + out);
}

void Imported(const Files& files, const Told& told) {
  std::string rows;
  EXPECT_EQ(Parvel(files, {"lista", "Viaturas", "--csv"}, rows), 0) << rows;
  const auto lines = std::count(rows.begin(), rows.end(), '\n') - 1;
  EXPECT_TRUE(lines == 100 || (lines == 0 && !told.Has("imported"))) << lines;
}

const Story kStories[] = {
    {"Creation", [](const Files&) {}, Create, EveryTold},
    {"Saves", [](const Files& files) { SaveSome(files, false); }, SaveMany, EveryTold},
    {"UpgradeOfACopy", [](const Files& files) { SaveSome(files, false); },
     [](const Files& files, const Tell&) { Database::Open(files.copy, Options(kNewer)); },
     [](const Files& files, const Told&) { EXPECT_EQ(Codes(files.copy, kNewer), "A B C "); }},
    {"UpgradeOverALog", [](const Files& files) { SaveSome(files, true); },
     [](const Files& files, const Tell&) { Database::Open(files.file, Options(kNewer)); },
     [](const Files& files, const Told&) { EXPECT_EQ(Codes(files.file, kNewer), "A B C D "); }},
    {"Copy", [](const Files& files) { SaveSome(files, true); },
     [](const Files& files, const Tell& tell) {
       const auto database = Database::Open(files.file, Options());
       fs::remove(files.copy);
       database->CopyTo(files.copy);
       tell("copied");
     },
     [](const Files& files, const Told& told) {
       EXPECT_EQ(Codes(files.file), "A B C D ");
       const bool there = fs::exists(files.copy);
       EXPECT_TRUE(there || !told.Has("copied"));
       EXPECT_TRUE(!there || Codes(files.copy).find("A B C ") == 0);
     }},
    {"Restore", [](const Files& files) { SaveSome(files, true); },
     [](const Files& files, const Tell& tell) {
       Database::Restore(files.file, files.copy, Options());
       tell("restored");
     },
     Restored},
    {"Import",
     [](const Files& files) {
       std::ofstream csv(files.csv);
       csv << "Matricula\n";
       for (int i = 1000; i < 1100; ++i) csv << "AA-" << i << "\n";
       RunKilled(0, [&](const Tell&) { Database::Open(files.file); });
     },
     Import, Imported}};

class KillTest : public testing::TestWithParam<Story> {};

TEST_P(KillTest, NothingThatWasToldIsLost) {
  const Story& story = GetParam();
  const TemporaryFolder before;
  story.before(Files{before});
  const auto run = [&](int killAt) {
    SCOPED_TRACE("killed at step " + std::to_string(killAt));
    const TemporaryFolder folder;
    fs::copy(before.File(""), folder.File(""), fs::copy_options::recursive);
    const Files files{folder};
    const Told told = RunKilled(killAt, [&](const Tell& tell) { story.act(files, tell); });
    for (const std::string& line : told.lines) EXPECT_FALSE(line.starts_with('!')) << line;
    try {
      story.holds(files, told);
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    return told.steps;
  };
  const int steps = run(0);
  ASSERT_GT(steps, 0);
  const int kills = std::min(steps, kMostKills);
  for (int i = 0; i < kills; ++i) run(1 + i * steps / kills);
}

INSTANTIATE_TEST_SUITE_P(All, KillTest, testing::ValuesIn(kStories),
                         [](const auto& story) { return story.param.name; });

/// A program saves on two connections while others come and go, and is killed.
TEST(Connections, OfOneProgramKeepTheirLocksWhenOneIsOpenedOrClosed) {
  const TemporaryFolder folder;
  const std::string file = folder.File("frota.db");
  std::array<int, 2> go{};
  ASSERT_EQ(pipe(go.data()), 0);
  const auto saves = [&](const Tell& tell) {
    const auto one = Database::Open(file, Options());
    auto other = Database::Open(file, Options());
    for (int i = 100; i < 140; ++i) {
      if (i == 120) other.reset();
      if (i == 130) Codes(file);
      Save(i % 2 == 0 || !other ? one : other, std::to_string(i));
      tell(std::to_string(i));
      char ready = 0;
      if (i % 5 == 0 && read(go[0], &ready, 1) != 1) tell("!");
    }
    _exit(0);
  };
  const Told told = RunKilled(0, saves, [&](const std::string& line) {
    if (line.back() != '0' && line.back() != '5') return;
    RunKilled(0, [&](const Tell&) { Codes(file); });
    WriteLine(go[1], "");
  });
  EXPECT_EQ(told.lines.size(), 40u);
  EveryTold(Files{folder}, told);
}

}  // namespace
}  // namespace kill_tests
