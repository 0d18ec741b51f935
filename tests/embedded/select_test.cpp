#include <filesystem>

#include "engine_fixture.h"
#include "support/files.h"

namespace embedded_tests {
namespace {

/// Every statement that the module is known to send runs on the program's own tables.
TEST(ModuleStatements, Compile) {
  const auto database = embedded::Database::Open(":memory:", Options(""));
  std::size_t count = 0;
  for (const auto& file :
       std::filesystem::directory_iterator(PARVEL_SOURCE_DIR "/tests/fuzz/corpus/accepted")) {
    const std::string text = testing_support::Contents(file.path().string());
    RecordsetRef rows;
    EXPECT_EQ(ErrorOf([&] {
                database->AbrirLeitura("", text.c_str(), rows);
                if (rows->IsOpen()) rows->RecordCount();
              }),
              "")
        << file.path().filename();
    ++count;
  }
  EXPECT_GT(count, 100u);
}

using SelectRecordsetTest = EngineTest;

TEST_F(SelectRecordsetTest, ReadsRowsAsTheyAreAskedFor) {
  AddCodes(300);
  const RecordsetRef rows = Open("SELECT Codigo FROM Codigos ORDER BY Codigo");
  EXPECT_LT(rows->RowsAtHand(), 10u);
  EXPECT_EQ(rows->RecordCount(), 300);
  EXPECT_LT(rows->RowsAtHand(), 10u);
  EXPECT_EQ(rows->CellAt(120, 0).block(), "C1121");
  EXPECT_LT(rows->RowsAtHand(), 250u);
  EXPECT_EQ(rows->Fields("codigo").Value().ToText(), "C1001");
  rows->MoveLast();
  EXPECT_EQ(rows->Fields("codigo").Value().ToText(), "C1300");
  EXPECT_EQ(rows->RecordCount(), 300);
}

TEST_F(SelectRecordsetTest, OneShapeIsOpenManyTimesAtOnce) {
  AddCodes(150);
  const RecordsetRef outer = Open("SELECT Codigo FROM Codigos WHERE Codigo > 'C0'");
  const RecordsetRef other = Open("SELECT Codigo FROM Codigos WHERE Codigo > 'C1100'");
  std::size_t found = 0;
  for (; !outer->Eof(); outer->MoveNext())
    found +=
        Rows("SELECT Codigo FROM Codigos WHERE Codigo > '" + outer->Fields("Codigo").Value().ToText() + "'")
            .size();
  EXPECT_EQ(found, 150u * 149u / 2u);
  EXPECT_EQ(ReadOn(other), 50u);
}

TEST_F(SelectRecordsetTest, AFailureComesWithTheRowThatCouldNotBeRead) {
  for (int km = 90; km >= 0; --km) Run("INSERT INTO Tudo (Km) VALUES (" + std::to_string(km) + ")");
  EXPECT_EQ(ErrorOf([&] { Open("SELECT 1 / (Km - 90) AS x FROM Tudo ORDER BY Id"); }),
            "-2147217900: Divide by zero error encountered.");
  for (const bool interrupted : {false, true}) {
    const RecordsetRef rows = Open("SELECT 90 / Km AS x FROM Tudo ORDER BY Id");
    if (interrupted) Run("DELETE FROM Codigos");
    for (int i = 0; i < 89; ++i) rows->MoveNext();
    EXPECT_EQ(rows->Fields("x").Value().ToLong(), 90);
    EXPECT_EQ(ErrorOf([&] {
                rows->MoveNext();
                rows->Eof();
              }),
              "-2147217900: Divide by zero error encountered.");
  }
}

TEST_F(SelectRecordsetTest, ManyShapesPushOutTheOldOnes) {
  AddCodes(1);
  const RecordsetRef rows = Open("SELECT Codigo FROM Codigos");
  for (int i = 0; i < 600; ++i)
    ASSERT_EQ(Rows("SELECT TOP 1 Nome AS n" + std::to_string(i) + " FROM Codigos").size(), 1u);
  for (int i = 0; i < 20; ++i)
    ASSERT_LE(Rows("SELECT TOP " + std::to_string(i) + " Nome FROM Codigos").size(), 1u);
  EXPECT_EQ(ReadOn(rows), 1u);
}

}  // namespace
}  // namespace embedded_tests
