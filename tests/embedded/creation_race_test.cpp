#include <sys/wait.h>
#include <unistd.h>

#include <iostream>
#include <thread>

#include "embedded/storage/sqlite.h"
#include "engine_fixture.h"

namespace embedded_tests {
namespace {

using embedded::Database;

/// A program that waits until `start` is closed, then opens the file and adds a code of its own.
pid_t Program(const std::string& file, const std::string& code, const int (&start)[2]) {
  const pid_t program = fork();
  if (program != 0) return program;
  close(start[1]);
  char none = 0;
  while (read(start[0], &none, 1) > 0) {
  }
  const std::string error = ErrorOf([&] {
    embedded::OpenOptions options = Options();
    options.busyTimeout = std::chrono::seconds(20);
    const auto database = Database::Open(file, options);
    database->ExecutarSql("", ("INSERT INTO Codigos (Codigo) VALUES ('" + code + "')").c_str());
  });
  if (!error.empty()) std::cerr << code << ": " << error << '\n';
  _exit(error.empty() ? 0 : 1);
}

TEST(CreationRace, ManyProgramsMayCreateOneDatabaseAtOnce) {
  const TemporaryFolder folder;
  for (int round = 0; round < 4; ++round) {
    SCOPED_TRACE(round);
    const std::string file = folder.File(std::to_string(round) + ".parvel");
    int start[2];
    ASSERT_EQ(pipe(start), 0);
    std::vector<pid_t> programs;
    for (const char* code : {"A", "B", "C", "D"}) programs.push_back(Program(file, code, start));
    close(start[0]);
    close(start[1]);  // all are off
    for (const pid_t program : programs) {
      int status = 0;
      waitpid(program, &status, 0);
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    EXPECT_EQ(
        testing_support::Rows(Database::Open(file, Options()), "SELECT Codigo FROM Codigos ORDER BY Codigo"),
        (Table{{"A"}, {"B"}, {"C"}, {"D"}}));
  }
}

TEST(CreationRace, AProgramThatWritesIsWaitedForWhenTheFileGoesOverToItsLog) {
  const TemporaryFolder folder;
  const std::string file = folder.File("frota.parvel");
  Database::Open(file, Options());
  const embedded::SqliteConnection other(file, SQLITE_OPEN_READWRITE);
  other.Execute("PRAGMA journal_mode = DELETE; BEGIN IMMEDIATE");
  std::thread ends([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    other.Execute("COMMIT");
  });
  embedded::OpenOptions options = Options();
  options.busyTimeout = std::chrono::seconds(20);
  EXPECT_EQ(ErrorOf([&] { Database::Open(file, options); }), "");
  ends.join();
}

}  // namespace
}  // namespace embedded_tests
