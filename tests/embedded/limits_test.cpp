#include <functional>

#include "embedded/storage/file_system.h"
#include "embedded/storage/sqlite.h"
#include "engine_fixture.h"

namespace embedded_tests {
namespace {

std::string Repeated(const std::string& piece, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += piece;
  return text;
}

class LimitsTest : public EngineTest {
 protected:
  LimitsTest() { Run("INSERT INTO Tudo (Nome, Km, Valor) VALUES ('a', 7, 7)"); }
};

TEST_F(LimitsTest, WhatIsMoreThanTheEngineTakesIsRefusedInTheServersWords) {
  const std::string complex =
      "-2147217900: The query processor ran out of internal resources and could not produce a query plan. "
      "Please "
      "simplify the query.";
  const std::string deep = "-2147217900: Some part of your SQL statement is nested too deeply.";
  const struct {
    std::string statement;
    std::string error;  // empty: it runs
  } cases[] = {
      {"SELECT Km FROM Tudo WHERE Km = 7" + Repeated(" AND Km = 7", 99), ""},
      {"SELECT Km FROM Tudo WHERE Km = 6" + Repeated(" OR Km = 7", 99), ""},
      {"SELECT " + Repeated("Km + ", 300) + "1 AS x FROM Tudo", deep},
      {"SELECT " + Repeated("(", 150) + "Km" + Repeated(")", 150) + " AS x FROM Tudo", ""},
      {"SELECT " + Repeated("(", 250) + "Km" + Repeated(")", 250) + " AS x FROM Tudo", deep},
      {"SELECT " + Repeated("COALESCE(Valor, ", 60) + "1" + Repeated(")", 60) + " AS x FROM Tudo", complex},
      {"SELECT COALESCE(Km" + Repeated(", Km", 200) + ") AS x FROM Tudo", complex},
      {"SELECT Km FROM Tudo" + Repeated(" UNION SELECT Km FROM Tudo", 499), ""},
      {"SELECT Km FROM Tudo" + Repeated(" UNION SELECT Km FROM Tudo", 500), complex},
      {"SELECT Km" + Repeated(", Km", 1998) + " FROM Tudo UNION ALL SELECT 1" + Repeated(", 1", 1998), ""},
      {"SELECT Km" + Repeated(", Km", 1999) + " FROM Tudo",
       "-2147217900: The number of elements in the select list exceeds the maximum allowed number of 1999 "
       "elements."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.statement.substr(0, 60));
    EXPECT_EQ(ErrorOf([&] {
                const RecordsetRef rows = Open(c.statement);
                EXPECT_EQ(rows->RecordCount(), static_cast<long>(ReadOn(rows)));
              }),
              c.error);
  }
  std::string joins = "SELECT t.Km FROM Tudo t";
  for (int i = 0; i < 80; ++i)
    joins += " JOIN Tudo t" + std::to_string(i) + " ON t.Id = t" + std::to_string(i) + ".Id";
  EXPECT_EQ(ErrorOf([&] { Open(joins); }), complex);
}

TEST_F(LimitsTest, AListMayHoldManyValues) {
  std::string statement = "SELECT Km FROM Tudo WHERE Nome IN ('x', 'A') AND Km IN (0";
  for (int i = 1; i < 20000; ++i) statement.append(", ").append(std::to_string(i));
  EXPECT_EQ(Rows(statement + ")"), (Table{{"7"}}));
}

TEST(Places, OnOtherMachinesAreKnownByTheirFileSystem) {
  using embedded::FileSystem;
  for (const auto& [magic, kind] :
       std::vector<std::pair<long, FileSystem>>{{0x6969, FileSystem::kNetwork},
                                                {0xFF534D42, FileSystem::kNetwork},
                                                {static_cast<std::int32_t>(0xFE534D42), FileSystem::kNetwork},
                                                {0x517B, FileSystem::kNetwork},
                                                {0x65735546, FileSystem::kUserSpace},
                                                {0xEF53, FileSystem::kLocal},
                                                {0x01021994, FileSystem::kLocal}})
    EXPECT_EQ(embedded::FileSystemOf(magic), kind) << magic;
  for (const char* type : {"fuse.sshfs", "fuse.gvfsd-fuse", "fuse.smbnetfs", "fuse.rclone"})
    EXPECT_TRUE(embedded::IsNetworkType(type)) << type;
  for (const char* type : {"fuseblk", "fuse.ntfs-3g", "ext4", ""})
    EXPECT_FALSE(embedded::IsNetworkType(type)) << type;
}

TEST(Failures, SayWhatToDo) {
  for (const auto& [code, words] : std::vector<std::pair<int, const char*>>{
           {SQLITE_FULL, "O disco está cheio e nada foi gravado. Liberte espaço"},
           {SQLITE_IOERR_FSYNC, "O disco falhou"},
           {SQLITE_CANTOPEN, "Verifique o caminho"},
           {SQLITE_CORRUPT, "reponha a última cópia"},
           {SQLITE_NOTADB, "Escolha outro ficheiro"},
           {SQLITE_NOMEM, "Não há memória"}}) {
    const int failure = code;
    const std::string error = ErrorOf([&] { embedded::RaiseSqlite(nullptr, failure); });
    EXPECT_EQ(error.substr(0, 13), "-2147467259: ");
    EXPECT_NE(error.find(words), std::string::npos) << error;
  }
}

}  // namespace
}  // namespace embedded_tests
