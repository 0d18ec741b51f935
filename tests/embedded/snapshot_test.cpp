#include <functional>

#include "engine_fixture.h"

namespace embedded_tests {
namespace {

using zorCrmParvel::Snapshot;

/// Two programs on one file with the codes C1001 to C1010.
class SnapshotTest : public EngineTest {
 protected:
  SnapshotTest() {
    store_ = embedded::Database::Open(folder_.File("frota.parvel"), Options());
    other_ = embedded::Database::Open(folder_.File("frota.parvel"), Options());
    AddCodes(10);
  }

  ~SnapshotTest() override { store_.reset(); }  // before its folder

  void Remove(const std::string& code) {
    other_->ExecutarSql("", ("DELETE FROM Codigos WHERE Codigo = '" + code + "'").c_str());
  }
  std::size_t Codes() const { return Rows("SELECT Codigo FROM Codigos").size(); }
  /// Removes in the other program what each row of a loop is about to look up; the number of rows still
  /// found.
  std::size_t LookUpEachRow(const std::string& outer) {
    std::size_t found = 0;
    const RecordsetRef rows = Open(outer);
    for (; !rows->Eof(); rows->MoveNext()) {
      const std::string code = rows->Fields("Codigo").Value().ToText();
      Remove(code);
      found += Rows("SELECT Nome FROM Codigos WHERE Codigo = '" + code + "'").size();
    }
    return found;
  }

  TemporaryFolder folder_;
  std::shared_ptr<embedded::Database> other_;
};

TEST_F(SnapshotTest, ALoopSeesTheDataAsItWasWhenItBegan) {
  EXPECT_EQ(LookUpEachRow("SELECT TOP 2 Codigo FROM Codigos"), 0u);  // without one, as it is at each row
  EXPECT_EQ(Codes(), 8u);
  {
    const Snapshot snapshot(store_);
    EXPECT_EQ(LookUpEachRow("SELECT Codigo FROM Codigos"), 8u);
    EXPECT_EQ(Codes(), 8u);
  }
  EXPECT_EQ(Codes(), 0u);
}

TEST_F(SnapshotTest, TheFirstWriteEndsItAndIsKept) {
  const std::vector<std::function<void()>> ends = {
      [this] { Run("INSERT INTO Codigos (Codigo, Nome) VALUES ('X', 'X')"); },
      [this] {
        const RecordsetRef rows = Edit("SELECT * FROM Codigos WHERE Codigo = 'C1010'");
        rows->Fields("Nome").SetValue("Outro");
        rows->Update();
      },
      [this] {
        zorCrmParvel::Batch batch(*store_);
        Run("DELETE FROM Codigos WHERE Codigo = 'X'");
        batch.Commit();
      },
      [this] { dynamic_cast<embedded::Database&>(*store_).CopyTo(folder_.File("copia.parvel")); }};
  int next = 1001;
  for (const std::function<void()>& end : ends) {
    SCOPED_TRACE(next);
    const std::size_t before = Codes();
    const Snapshot snapshot(store_);
    const RecordsetRef unread = Open("SELECT Codigo FROM Codigos ORDER BY Codigo");
    Remove("C" + std::to_string(next++));
    EXPECT_EQ(Codes(), before);
    end();
    EXPECT_EQ(testing_support::Rows(other_, "SELECT Codigo FROM Codigos"),
              Rows("SELECT Codigo FROM Codigos"));  // each has what the other wrote
    EXPECT_EQ(unread->RecordCount(), static_cast<long>(before));
    Remove("C" + std::to_string(next++));
    EXPECT_EQ(testing_support::Rows(other_, "SELECT Codigo FROM Codigos").size(), Codes());
  }
}

TEST_F(SnapshotTest, TheyNestAndEndWithAnErrorAndRowsLeftOpenGoOn) {
  RecordsetRef rows;
  {
    const Snapshot outer(store_);
    rows = Open("SELECT Codigo FROM Codigos");
    EXPECT_EQ(ErrorOf([this] {
                const Snapshot inner(store_);
                Remove("C1001");
                Rows("SELECT 1 / 0 AS x FROM Codigos");
              }),
              "-2147217900: Divide by zero error encountered.");
    EXPECT_EQ(Codes(), 10u);
  }
  EXPECT_EQ(Codes(), 9u);
  Remove("C1010");
  EXPECT_EQ(ReadOn(rows), 10u);
}

TEST_F(SnapshotTest, WithinABatchItsOwnWritesAreSeen) {
  zorCrmParvel::Batch batch(*store_);
  const Snapshot snapshot(store_);
  Run("DELETE FROM Codigos WHERE Codigo > 'C1003'");
  EXPECT_EQ(Codes(), 3u);
  batch.Commit();
  EXPECT_EQ(testing_support::Rows(other_, "SELECT Codigo FROM Codigos").size(), 3u);
}

}  // namespace
}  // namespace embedded_tests
