#include <sys/stat.h>

#include <fstream>

#include "embedded/storage/collation.h"
#include "embedded/storage/file_steps.h"
#include "embedded/storage/file_system.h"
#include "embedded/storage/sqlite.h"
#include "engine_fixture.h"
#include "platform/files.h"
#include "support/child.h"
#include "support/files.h"

namespace embedded_tests {
namespace {

namespace fs = std::filesystem;
using embedded::Database;
using embedded::SqliteConnection;
using testing_support::Contents;

constexpr int kCreate = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;

void WriteContents(const std::string& file, const std::string& contents) {
  std::ofstream(file, std::ios::binary) << contents;
}

class FileTest : public testing::Test {
 protected:
  std::shared_ptr<Database> Open(const embedded::OpenOptions& options = Options()) {
    return Database::Open(file_, options);
  }
  static void Add(const std::shared_ptr<Database>& database, const std::string& code) {
    database->ExecutarSql("", ("INSERT INTO Codigos (Codigo) VALUES ('" + code + "')").c_str());
  }
  static Table Codes(const std::shared_ptr<Database>& database) {
    return testing_support::Rows(database, "SELECT Codigo FROM Codigos ORDER BY Codigo");
  }
  /// Opening fails with these words in its text, changes no byte and leaves nothing beside the file.
  void ExpectRefused(const std::string& words, const embedded::OpenOptions& options = Options()) {
    const std::string before = Contents(file_);
    const std::string error = ErrorOf([&] { Open(options); });
    EXPECT_EQ(error.substr(0, 13), "-2147467259: ");
    EXPECT_NE(error.find(words), std::string::npos) << error;
    EXPECT_EQ(Contents(file_), before);
    EXPECT_FALSE(fs::exists(file_ + "-wal") || fs::exists(file_ + "-shm") || fs::exists(file_ + "-journal"));
  }

  TemporaryFolder folder_;
  std::string file_ = folder_.File("frota#1 50%.parvel");
};

TEST_F(FileTest, KeepsItsRowsAndWritesNothingWhenItIsUpToDate) {
  Add(Open(), "A1");
  const std::string before = Contents(file_);
  EXPECT_EQ(Codes(Open()), (Table{{"A1"}}));
  EXPECT_EQ(Contents(file_), before);
  EXPECT_FALSE(fs::exists(file_ + "-wal"));
  EXPECT_EQ(Open()->path(), file_);
}

TEST_F(FileTest, ANameThatIsTakenStaysWithItsFile) {
  const std::string other = file_ + ".novo";
  WriteContents(file_, "um");
  WriteContents(other, "dois");
  const std::string error = ErrorOf([&] { embedded::MoveToNewName(other, file_); });
  EXPECT_NE(error.find("não pôde ficar com este nome"), std::string::npos) << error;
  EXPECT_EQ(Contents(file_) + Contents(other), "umdois");
}

TEST_F(FileTest, RefusesWhatIsNoDatabaseOfThisProgram) {
  WriteContents(file_, "");
  ExpectRefused("está vazio: não é uma base de dados. Reponha uma cópia");
  WriteContents(file_, "\x89PNG\r\n\x1a\n" + std::string(5000, 'x'));
  ExpectRefused("não é uma base de dados");
  WriteContents(file_, "SQLite");
  ExpectRefused("não é uma base de dados");
  WriteContents(file_, std::string("SQLite format 3\0", 16) + std::string(4080, '\xff'));
  ExpectRefused("não é uma base de dados");
  fs::remove(file_);
  for (const char* mark : {"", "PRAGMA application_id = 99;", "PRAGMA journal_mode = WAL;"}) {
    SqliteConnection(file_, kCreate).Execute(std::string(mark) + "CREATE TABLE notas (texto)");
    ExpectRefused("outro programa");
    fs::remove(file_);
  }
  fs::create_directory(file_);
  EXPECT_NE(ErrorOf([&] { Open(); }).find("é uma pasta"), std::string::npos);
  file_ = folder_.File("nada/frota.parvel");
  EXPECT_NE(ErrorOf([&] { Open(); }).find("não existe"), std::string::npos);
  EXPECT_NE(ErrorOf([&] { Database::Open("", Options()); }).find("Falta o nome"), std::string::npos);
}

TEST_F(FileTest, AForeignDatabaseIsNotChangedByLookingAtItNorIsItsLog) {
  testing_support::InKilledProgram([this] {
    const SqliteConnection foreign(file_, kCreate);
    foreign.Execute("PRAGMA journal_mode = WAL; CREATE TABLE notas (texto); INSERT INTO notas VALUES ('x')");
    _exit(0);
  });
  const std::string before = Contents(file_) + Contents(file_ + "-wal");
  EXPECT_NE(ErrorOf([&] { Open(); }).find("outro programa"), std::string::npos);
  EXPECT_EQ(Contents(file_) + Contents(file_ + "-wal"), before);
}

TEST_F(FileTest, WhatWasHalfDoneIsUndoneBeforeItIsLookedAt) {
  {
    const auto database = Open();
    for (int i = 1000; i < 1300; ++i) Add(database, std::to_string(i));
  }
  testing_support::InKilledProgram([this] {
    const SqliteConnection other(file_, SQLITE_OPEN_READWRITE);
    embedded::RegisterCollation(other.get());
    other.Execute(
        "PRAGMA journal_mode = DELETE; PRAGMA cache_size = 2; PRAGMA cache_spill = 2; BEGIN; "
        "UPDATE Codigos SET Nome = Codigo || hex(zeroblob(15)); PRAGMA application_id = 7; "
        "CREATE TABLE x AS SELECT * FROM Codigos");
    _exit(0);
  });
  ASSERT_TRUE(fs::exists(file_ + "-journal"));
  EXPECT_EQ(testing_support::Rows(Open(), "SELECT Codigo FROM Codigos WHERE Nome IS NULL").size(), 300u);
}

TEST_F(FileTest, RefusesADatabaseOfALaterVersionOrDamaged) {
  Add(Open(Options("-- versão 12\nCREATE TABLE Codigos (Codigo nvarchar(10) NOT NULL, CONSTRAINT PK PRIMARY "
                   "KEY (Codigo));")),
      "A");
  ExpectRefused("é da versão 12 e este programa só conhece até à versão 3. Actualize o programa");
  WriteContents(file_, Contents(file_).substr(0, 4096 + 100));
  ExpectRefused("danificada", Options("-- versão 12\nCREATE TABLE Codigos (Codigo nvarchar(10) NULL);"));
}

TEST_F(FileTest, OpensAReadOnlyFileForReading) {
  Add(Open(), "A");
  ASSERT_EQ(chmod(file_.c_str(), 0444), 0);
  const std::string before = Contents(file_);
  const auto database = Open();
  EXPECT_EQ(Codes(database), (Table{{"A"}}));
  EXPECT_NE(ErrorOf([&] { Add(database, "B"); }).find("só permite leitura"), std::string::npos);
  const auto later = Options("-- versão 4\nCREATE TABLE Outra (Codigo int NULL);");
  EXPECT_NE(ErrorOf([&] { Open(later); }).find("versão anterior"), std::string::npos);
  EXPECT_EQ(Contents(file_), before);
  EXPECT_FALSE(fs::exists(file_ + "-wal"));
  ASSERT_EQ(chmod(file_.c_str(), 0600), 0);
  Add(Open(), "B");
  EXPECT_NE(ErrorOf([&] { Codes(database); }).find("Abra-a de novo"), std::string::npos);
}

TEST_F(FileTest, AReadOnlyFileIsReadThroughTheLogThatIsBesideIt) {
  testing_support::InKilledProgram([this] {
    Add(Open(), "A");
    const auto database = Open();
    Add(database, "B");
    _exit(0);
  });
  ASSERT_TRUE(fs::exists(file_ + "-wal"));
  ASSERT_EQ(chmod(file_.c_str(), 0444), 0);
  const std::string before = Contents(file_) + Contents(file_ + "-wal");
  EXPECT_EQ(Codes(Open()), (Table{{"A"}, {"B"}}));
  EXPECT_EQ(Contents(file_) + Contents(file_ + "-wal"), before);
}

TEST_F(FileTest, OnlyTheOwnerReadsWhatIsNewAndWhatIsThereKeepsItsMode) {
  const auto mode = [](const std::string& file) { return fs::status(file).permissions(); };
  const std::string copy = folder_.File("cópia.parvel");
  {
    const auto database = Open();
    Add(database, "A");
    database->CopyTo(copy);
    for (const std::string& file : {file_, file_ + "-wal", file_ + "-shm", copy})
      EXPECT_EQ(mode(file), fs::perms(0600)) << file;
  }
  ASSERT_EQ(chmod(file_.c_str(), 0640), 0);
  EXPECT_EQ(Database::Check(copy, Options()).problems.size(), 0u);
  const auto report = Database::Check(file_, Options());
  ASSERT_EQ(report.problems.size(), 1u);
  EXPECT_NE(report.problems[0].find("chmod 600"), std::string::npos) << report.problems[0];
  EXPECT_EQ(report.version, 3);
  EXPECT_EQ(report.tables, 3);
  EXPECT_EQ(report.rows, 3);
  Database::Restore(file_, copy, Options());
  EXPECT_EQ(mode(file_), fs::perms(0640));
}

TEST_F(FileTest, RowsLeftUnreadDoNotHoldTheLogPastItsLimit) {
  embedded::OpenOptions options = Options();
  options.logLimit = 100'000;
  const auto log = [this] { return fs::file_size(file_ + "-wal"); };
  const auto reader = Open(options);
  const auto writer = Open(options);
  for (int i = 1000; i < 1200; ++i) Add(reader, std::to_string(i));
  EXPECT_LE(log(), 150'000u);
  for (const bool walked : {false, true}) {
    RecordsetRef rows;
    reader->AbrirLeitura("", "SELECT Codigo FROM Codigos WHERE Codigo < '1200' ORDER BY Codigo", rows);
    for (int i = 0; i < 60; ++i) Add(writer, (walked ? "W" : "R") + std::to_string(i));
    EXPECT_GT(log(), 200'000u);
    if (walked)
      EXPECT_EQ(rows->CellAt(100, 0).block(), "1100");
    else
      reader->KeepLogShort();
    EXPECT_EQ(log(), 0u);
    EXPECT_EQ(rows->RecordCount(), 200);
  }
}

TEST_F(FileTest, TwoProgramsSeeOneAnothersWrites) {
  const auto one = Open();
  const auto two = Open();
  for (int i = 1000; i < 1200; ++i) Add(one, std::to_string(i));
  RecordsetRef unread;
  two->AbrirLeitura("", "SELECT Codigo FROM Codigos", unread);
  Add(one, "novo");
  EXPECT_EQ(Codes(two).size(), 201u);  // though an older recordset of it has not been read to its end
  EXPECT_EQ(unread->RecordCount(), 200);
  Add(two, "outro");
  EXPECT_EQ(Codes(one).size(), 202u);
}

TEST_F(FileTest, WhileItIsOpenNobodyHereReadsOrWritesItAsADocument) {
  auto database = Open();
  Add(database, "A");
  const std::string link = folder_.File("ligação");
  fs::create_symlink(file_, link);
  for (const std::string& file : {file_, file_ + "-wal", link}) {
    EXPECT_NE(ErrorOf([&] { platform::ReadFile(file); }).find("está aberta"), std::string::npos) << file;
    EXPECT_NE(ErrorOf([&] { platform::WriteFile(file, ""); }).find("está aberta"), std::string::npos) << file;
  }
  database.reset();
  EXPECT_EQ(platform::ReadFile(link).size(), fs::file_size(file_));
}

TEST_F(FileTest, OneProgramAtATimeOpensAFile) {
  {
    const embedded::FolderLock lock(file_, std::chrono::seconds(0));
    EXPECT_NE(ErrorOf([&] { Open(); }).find("Espere um momento"), std::string::npos);
  }
  EXPECT_EQ(ErrorOf([&] { Open(); }), "");
}

TEST_F(FileTest, ALockedDatabaseRefusesTheWriteInTime) {
  const auto database = Open();
  const SqliteConnection other(file_, kCreate);
  other.Execute("BEGIN IMMEDIATE");
  EXPECT_EQ(ErrorOf([&] { Add(database, "A"); }),
            "-2147467259: A base de dados está ocupada por outro programa e nada foi gravado. Espere um "
            "momento e tente de novo.");
  EXPECT_EQ(Codes(database), Table{});
  other.Execute("COMMIT");
  Add(database, "A");
  EXPECT_EQ(Codes(database), (Table{{"A"}}));
}

TEST_F(FileTest, AMovedFileRefusesWritesButCanStillBeCopied) {
  const auto database = Open();
  Add(database, "A");
  RecordsetRef rows;
  database->AbrirEdicao("SELECT Codigo FROM Codigos", rows);
  for (const bool replaced : {false, true}) {
    fs::remove(file_);
    if (replaced) WriteContents(file_, "outra coisa");
    EXPECT_NE(ErrorOf([&] { Add(database, "B"); }).find("Guardar cópia"), std::string::npos);
    rows->Fields("Codigo").SetValue("C");
    EXPECT_NE(ErrorOf([&] { rows->Update(); }).find("já não está no seu lugar"), std::string::npos);
  }
  EXPECT_EQ(Contents(file_), "outra coisa");
  const std::string copy = folder_.File("cópia.parvel");
  database->CopyTo(copy);
  EXPECT_EQ(Codes(Database::Open(copy, Options())), (Table{{"A"}}));
}

TEST_F(FileTest, CopiesAreDatabasesOfTheirOwn) {
  const auto database = Open();
  Add(database, "A");
  RecordsetRef unread;
  database->AbrirLeitura("", "SELECT Codigo FROM Codigos", unread);
  const std::string copy = folder_.File("cópia 'de' 2024.parvel");
  database->CopyTo(copy);
  Add(database, "B");
  const auto copied = Database::Open(copy, Options());
  Add(copied, "C");
  EXPECT_EQ(Codes(copied), (Table{{"A"}, {"C"}}));
  const std::string before = Contents(copy);
  EXPECT_NE(ErrorOf([&] { database->CopyTo(copy); }).find("já existe"), std::string::npos);
  EXPECT_EQ(Contents(copy), before);
  EXPECT_NE(ErrorOf([&] { database->CopyTo(folder_.File("nada/x")); }).find("não pôde ser escrita"),
            std::string::npos);
  Database::Open(":memory:", Options())->CopyTo(folder_.File("memória.parvel"));
  EXPECT_EQ(Codes(Database::Open(folder_.File("memória.parvel"), Options())), Table{});
}

}  // namespace
}  // namespace embedded_tests
