#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "embedded/storage/sqlite.h"
#include "engine_fixture.h"
#include "support/child.h"
#include "support/files.h"

namespace embedded_tests {
namespace {

namespace fs = std::filesystem;
using embedded::Database;
using testing_support::Contents;
using testing_support::InKilledProgram;

/// A file with A in it and a copy of that.
class RestoreTest : public testing::Test {
 protected:
  RestoreTest() {
    Save("A");
    Open(file_)->CopyTo(copy_);
  }
  static std::shared_ptr<Database> Open(const std::string& file) { return Database::Open(file, Options()); }
  void Save(const std::string& code) const {
    Open(file_)->ExecutarSql("", ("INSERT INTO Codigos (Codigo) VALUES ('" + code + "')").c_str());
  }
  void SaveAndBeKilled(const std::string& code) const {
    InKilledProgram([&] {
      const auto database = Open(file_);
      database->ExecutarSql("", ("INSERT INTO Codigos (Codigo) VALUES ('" + code + "')").c_str());
      _exit(0);
    });
    ASSERT_TRUE(fs::exists(file_ + "-wal"));
  }
  static std::string Codes(const std::string& file) {
    std::string codes;
    for (const auto& row : testing_support::Rows(Open(file), "SELECT Codigo FROM Codigos ORDER BY Codigo"))
      codes += row.at(0);
    return codes;
  }
  std::string Restore(const std::string& copy) const { return Database::Restore(file_, copy, Options()); }
  /// The file and what stands beside it; what can be made anew is left out.
  std::map<std::string, std::string> Everything() const {
    std::map<std::string, std::string> all;
    for (const auto& entry : fs::directory_iterator(folder_.File("")))
      if (entry.path().extension() != ".db-shm") all[entry.path().filename()] = Contents(entry.path());
    return all;
  }

  TemporaryFolder folder_;
  const std::string file_ = folder_.File("frota.db");
  const std::string copy_ = folder_.File("cópia.db");
};

TEST_F(RestoreTest, ALogThatWasLeftGoesIntoItsOwnFile) {
  SaveAndBeKilled("B");
  SaveAndBeKilled("C");
  EXPECT_EQ(Codes(file_), "ABC");
  EXPECT_FALSE(fs::exists(file_ + "-wal"));
}

TEST_F(RestoreTest, ALogThatWasLeftByAnotherFileTouchesNothing) {
  const std::string looked = folder_.File("vista.db");
  fs::copy_file(copy_, looked);
  EXPECT_EQ(Codes(looked), "A");  // goes over to a log of its own
  const std::string old = folder_.File("antiga.db");
  fs::copy_file(file_, old);
  const std::string earlier = folder_.File("anterior.db");  // of a program that didn't mark its copies
  fs::copy_file(copy_, earlier);
  embedded::SqliteConnection(earlier, SQLITE_OPEN_READWRITE)
      .Execute("DELETE FROM parvel_settings WHERE name = 'registo'");
  Save("B");
  SaveAndBeKilled("C");
  const std::string log = Contents(file_ + "-wal");
  for (const std::string& put : {copy_, looked, old, earlier}) {
    SCOPED_TRACE(put);
    fs::copy_file(put, file_, fs::copy_options::overwrite_existing);
    std::ofstream(file_ + "-wal", std::ios::binary) << log;
    const auto before = Everything();
    const std::string error = ErrorOf([&] { Open(file_); });
    EXPECT_NE(error.find("que não é deste ficheiro"), std::string::npos) << error;
    EXPECT_NE(error.find("mude \"" + file_ + "-wal\""), std::string::npos) << error;
    EXPECT_EQ(Everything(), before);
  }
  const std::string aside = Restore(copy_);
  EXPECT_EQ(Codes(file_), "A");
  EXPECT_EQ(Contents(aside + "-wal"), log);
}

TEST_F(RestoreTest, WhatWasThereStaysUnderADatedName) {
  SaveAndBeKilled("B");
  const std::string aside = Restore(copy_);
  EXPECT_EQ(aside, file_ + ".antes-20240301-120000");
  EXPECT_EQ(Codes(file_), "A");
  EXPECT_EQ(Codes(aside), "AB");
  EXPECT_EQ(Restore(copy_), file_ + ".antes-20240301-120001");
  fs::remove(file_);
  EXPECT_EQ(Restore(aside), "");
  EXPECT_EQ(Codes(file_), "AB");
}

TEST_F(RestoreTest, AFileThatIsNoDatabaseAnyMoreIsReplaced) {
  for (const std::string& rubbish : {std::string(), std::string(5000, 'x')}) {
    std::ofstream(file_, std::ios::binary | std::ios::trunc) << rubbish;
    EXPECT_NE(ErrorOf([&] { Open(file_); }).find("não é uma base de dados"), std::string::npos);
    const std::string aside = Restore(copy_);
    EXPECT_EQ(Contents(aside), rubbish);
    EXPECT_EQ(Codes(file_), "A");
    fs::remove(aside);
  }
}

TEST_F(RestoreTest, WhatCannotBeRestoredChangesNothing) {
  const std::string picture = folder_.File("fotografia.db");
  std::ofstream(picture) << std::string(5000, 'x');
  Save("B");
  for (const auto& [copy, words] : {std::pair{file_, "é a própria base de dados"},
                                    {picture, "não é uma base de dados"},
                                    {folder_.File("nada.db"), "Não há o ficheiro"},
                                    {folder_.File(""), "é uma pasta"}}) {
    const auto before = Everything();
    const std::string error = ErrorOf([&, from = copy] { Restore(from); });
    EXPECT_NE(error.find(words), std::string::npos) << error;
    EXPECT_EQ(Everything(), before);
  }
  const auto open = Open(file_);
  EXPECT_NE(ErrorOf([&] { Restore(copy_); }).find("está aberta noutro programa"), std::string::npos);
  EXPECT_EQ(Codes(file_), "AB");
}

TEST_F(RestoreTest, ALogWithoutItsFileIsNoNewDatabase) {
  SaveAndBeKilled("B");
  fs::rename(file_, folder_.File("outra.db"));
  const auto before = Everything();
  EXPECT_NE(ErrorOf([&] { Open(file_); }).find("gravações que eram dele"), std::string::npos);
  EXPECT_EQ(Everything(), before);
  fs::rename(folder_.File("outra.db"), file_);
  EXPECT_EQ(Codes(file_), "AB");
}

}  // namespace
}  // namespace embedded_tests
