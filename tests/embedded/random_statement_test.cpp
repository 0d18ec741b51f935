#include <fstream>
#include <random>
#include <sstream>

#include "engine_fixture.h"

// Statements put together by chance: they run, or they are refused in the server's words. Nothing else may
// happen.
namespace embedded_tests {
namespace {

class Chance {
 public:
  explicit Chance(unsigned seed) : engine_(seed) {}
  int Below(int count) { return static_cast<int>(engine_() % static_cast<unsigned>(count)); }
  template <std::size_t n>
  std::string Of(const char* const (&all)[n]) {
    return all[Below(static_cast<int>(n))];
  }

 private:
  std::mt19937 engine_;  // the same numbers everywhere
};

class Writer {
 public:
  explicit Writer(unsigned seed) : chance_(seed) {}

  std::string Statement() {
    switch (chance_.Below(12)) {
      case 0:
        return "UPDATE Tudo SET " + Column() + " = " + Value(2) + " WHERE " + Condition(2);
      case 1:
        return "INSERT INTO Tudo (" + Column() + ", Nome) VALUES (" + Value(2) + ", " + Value(1) + ")";
      case 2:
        return "DELETE FROM Tudo WHERE Id > 5 AND " + Condition(2);
      case 3:
        return Select(2) + " UNION " + Select(2) + " UNION ALL " + Select(2) + " ORDER BY 1";
      default:
        return Select(1 + chance_.Below(2)) +
               (chance_.Below(2) == 0 ? " ORDER BY " + Value(2) + " DESC" : "");
    }
  }

 private:
  std::string Column() {
    return chance_.Of({"Id", "Nome", "Notas", "Activa", "Ano", "Km", "Valor", "Razao", "Data", "Foto"});
  }
  std::string Literal() {
    return chance_.Of({"0",
                       "1",
                       "-1",
                       "7",
                       "2.5",
                       ".00005",
                       "2147483648",
                       "922337203685477.5807",
                       "99999999999999999999",
                       "''",
                       "' '",
                       "'a'",
                       "N'Ávila'",
                       "'5'",
                       "'-3.5'",
                       "'x''y'",
                       "'2024.02.29'",
                       "'1753-01-01'",
                       "NULL",
                       "getdate()"});
  }
  std::string Type() {
    return chance_.Of({"bit", "smallint", "int", "money", "float", "datetime", "nvarchar(3)", "nvarchar(max)",
                       "varbinary(max)"});
  }
  std::string Value(int depth) {
    if (depth == 0) return chance_.Below(2) == 0 ? Column() : Literal();
    const auto one = [&] { return Value(depth - 1); };
    switch (chance_.Below(14)) {
      case 0:
        return chance_.Of({"-", "+"}) + ("(" + one() + ")");
      case 1:
      case 2:
      case 3:
        return "(" + one() + chance_.Of({" + ", " - ", " * ", " / ", " % "}) + one() + ")";
      case 4:
      case 5:
        return "CAST(" + one() + " AS " + Type() + ")";
      case 6:
        return "CONVERT(" + Type() + ", " + one() + ", " + chance_.Of({"0", "102", "105", "120", "7"}) + ")";
      case 7:
        return "CASE " + one() + " WHEN " + one() + " THEN " + one() + " ELSE " + one() + " END";
      case 8:
        return "CASE WHEN " + Condition(depth - 1) + " THEN " + one() + " END";
      case 9:
        return chance_.Of({"COALESCE", "ISNULL", "LEFT"}) + ("(" + one() + ", " + one() + ")");
      case 10:
        return chance_.Of({"LEN", "SUM", "MIN", "MAX", "COUNT"}) + ("(" + one() + ")");
      case 11:
        return "datediff(d, " + one() + ", " + one() + ")";
      default:
        return one();
    }
  }
  std::string Condition(int depth) {
    const auto one = [&] { return Value(depth == 0 ? 0 : depth - 1); };
    const int kind = chance_.Below(depth == 0 ? 5 : 7);
    if (kind == 0) return one() + " IS NULL";
    if (kind == 1) return one() + chance_.Of({" LIKE ", " NOT LIKE "}) + one();
    if (kind == 2) return one() + " IN (" + one() + ", " + one() + ")";
    if (kind < 5) return one() + chance_.Of({" = ", " <> ", " < ", " >= "}) + one();
    if (kind == 5) return "NOT (" + Condition(depth - 1) + ")";
    return "(" + Condition(depth - 1) + chance_.Of({" AND ", " OR "}) + Condition(depth - 1) + ")";
  }
  std::string Select(int depth) {
    std::string text = "SELECT " + chance_.Of({"", "", "TOP 2 ", "DISTINCT "}) + Value(depth) + " AS x, " +
                       Value(depth) + " FROM Tudo";
    if (chance_.Below(2) == 0) text += " WHERE " + Condition(depth);
    return text;
  }

  Chance chance_;
};

class RandomStatementTest : public EngineTest {
 protected:
  RandomStatementTest() {
    Run("INSERT INTO Tudo (Nome, Activa, Ano, Km, Valor, Razao, Data) VALUES (N'Ávila', 1, 2024, 7, 60.5, "
        "0.25, '2024.02.29 13:05:09')");
    Run("INSERT INTO Tudo (Nome, Km, Valor) VALUES ('5', -2147483648, -922337203685477.5808)");
  }

  void RunOrRead(const std::string& statement) {
    if (statement.starts_with("SELECT")) {
      const RecordsetRef rows = Open(statement);
      std::size_t count = 0;
      for (; !rows->Eof(); rows->MoveNext(), ++count)
        for (const platform::FieldInfo& field : rows->FieldList()) rows->Fields(field.name).Value();
      EXPECT_EQ(rows->RecordCount(), static_cast<long>(count));
    } else {
      Run(statement);
    }
  }

  /// True when it ran.
  bool Tried(const std::string& statement) {
    try {
      RunOrRead(statement);
      return true;
    } catch (const platform::RuntimeError& error) {
      const std::string words = error.description();
      for (const char* foreign :
           {"near \"", "no such", "misuse", "wrong number", "ORDER BY term", "constraint failed", "datatype",
            "row value", "parameters", "overflow", "too "})
        EXPECT_TRUE(words.find(foreign) == std::string::npos || words.starts_with("Arithmetic overflow") ||
                    words.ends_with("column caused an overflow.") || words.ends_with("nested too deeply."))
            << words;
      return false;
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
      return false;
    }
  }
};

TEST_F(RandomStatementTest, RunsOrIsRefused) {
  int ran = 0;
  constexpr unsigned kStatements = 4000;
  for (unsigned seed = 0; seed < kStatements && !HasFailure(); ++seed) {
    const std::string statement = Writer(seed).Statement();
    SCOPED_TRACE(statement);
    ran += Tried(statement) ? 1 : 0;
  }
  EXPECT_GT(ran, 400) << "most are refused before much happens";
}

TEST_F(RandomStatementTest, SoIsWhatTheFuzzerFound) {
  for (const char* folder : {"accepted", "refused"})
    for (const auto& file : std::filesystem::recursive_directory_iterator(
             std::string(PARVEL_SOURCE_DIR "/tests/fuzz/corpus/") + folder)) {
      if (!file.is_regular_file()) continue;
      std::ostringstream text;
      text << std::ifstream(file.path()).rdbuf();
      SCOPED_TRACE(file.path().string());
      Tried(text.str());
    }
}

}  // namespace
}  // namespace embedded_tests
