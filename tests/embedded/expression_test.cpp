// What expressions and statements come to, held against texts.
#include "engine_fixture.h"
#include "support/whole_text.h"

namespace embedded_tests {
namespace {

class ExpressionTest : public EngineTest {
 protected:
  /// Names and types of the columns, and the values of the rows; or the error.
  std::string Selected(const std::string& statement) {
    std::string outcome;
    const std::string error = ErrorOf([&] {
      const RecordsetRef rows = Open(statement);
      for (const platform::FieldInfo& field : rows->FieldList())
        outcome += field.name + ":" + TypeOf(field) + (field.nullable ? "? " : " ");
      const long count = rows->RecordCount();
      for (const auto& row : testing_support::Rows(rows)) {
        outcome += "/";
        for (const std::string& value : row) outcome += " " + value;
      }
      EXPECT_EQ(static_cast<std::size_t>(count), ReadOn(rows)) << statement;
    });
    return error.empty() ? outcome : "! " + error;
  }
  /// The one value of an expression on the one row, with its type; or the error.
  std::string Value(const std::string& statement) {
    std::string outcome;
    const std::string error = ErrorOf([&] {
      const RecordsetRef rows = Open(statement);
      outcome = testing_support::Rows(rows).at(0).at(0) + ":" + TypeOf(rows->FieldList()[0]);
    });
    return error.empty() ? outcome : "! " + error;
  }
  /// A statement, a condition before a question mark, or an expression.
  std::string Outcome(const std::string& input) {
    if (input.starts_with("SELECT")) return Selected(input);
    for (const char* write : {"INSERT", "UPDATE", "DELETE"})
      if (input.starts_with(write)) return ErrorOf([&] { Run(input); });
    if (!input.ends_with(" ?")) return Value("SELECT " + input + " AS x FROM Tudo");
    return Value("SELECT count(*) AS n FROM Tudo WHERE " + input.substr(0, input.size() - 2));
  }
  void Hold(const std::string& file) {
    testing_support::ExpectCases(std::string(PARVEL_SOURCE_DIR) + "/tests/embedded/" + file,
                                 [this](const std::string& input) { return Outcome(input); });
  }

 private:
  static std::string TypeOf(const platform::FieldInfo& field) {
    return std::to_string(static_cast<int>(field.type)) + "/" + std::to_string(field.definedSize);
  }
};

TEST_F(ExpressionTest, ExpressionsAreWorkedOutAsWrittenDown) {
  Run("INSERT INTO Tudo (Nome, Activa, Ano, Km, Valor, Razao, Data) VALUES (N'Ávila', 1, 2024, 7, 60.5, "
      "0.25, "
      "'2024.02.29 13:05:09')");
  Hold("expressions.txt");
}

TEST_F(ExpressionTest, StatementsAreAnsweredAsWrittenDown) {
  AddCodes(3);
  Hold("selects.txt");
}

}  // namespace
}  // namespace embedded_tests
