// What expressions come to, with the type of the column that they give, held against a text.
#include <sstream>

#include "engine_fixture.h"
#include "support/whole_text.h"

namespace embedded_tests {
namespace {

/// What each statement of a text gives: the values of its rows with the types of its columns, or the error.
class ExpressionTest : public EngineTest {
 protected:
  ExpressionTest() { Fill("60.5"); }
  void Fill(const std::string& money) {
    Run("DELETE FROM Tudo");
    Run("INSERT INTO Tudo (Nome, Activa, Ano, Km, Valor, Razao, Data) VALUES (N'Ávila', 1, 2024, 7, " +
        money + ", 0.25, '2024.02.29 13:05:09')");
  }
  std::string Outcome(const std::string& statement) {
    std::string outcome;
    const std::string error = ErrorOf([&] {
      const RecordsetRef rows = Open(statement);
      for (const auto& row : testing_support::Rows(rows))
        for (std::size_t i = 0; i < row.size(); ++i) {
          const platform::FieldInfo& field = rows->FieldList()[i];
          outcome += " " + row[i] + ":" + std::to_string(static_cast<int>(field.type)) + "/" +
                     std::to_string(field.definedSize);
        }
    });
    return error.empty() ? outcome : " ! " + error;
  }
  /// Works expressions out on the one row, a line each.
  void Write(const std::vector<std::string>& expressions) {
    for (const std::string& expression : expressions)
      text_ << expression << " =" << Outcome("SELECT " + expression + " AS x FROM Tudo") << "\n";
  }
  /// Asks conditions of the one row.
  void Ask(const std::vector<std::string>& conditions) {
    for (const std::string& condition : conditions)
      text_ << condition << " ?" << Outcome("SELECT count(*) AS n FROM Tudo WHERE " + condition) << "\n";
  }

  std::ostringstream text_;
};

const std::vector<std::string> kColumns = {"Nome",  "Notas", "Activa", "Ano", "Km",
                                           "Valor", "Razao", "Data",   "Foto"};
const std::vector<std::string> kLiterals = {"NULL", "'12'", "''",         "'2024.02.29'",
                                            "2",    "2.5",  "3000000000", "0"};

TEST_F(ExpressionTest, EveryOperatorOnEveryTypeIsAsWrittenDown) {
  std::vector<std::string> operands = kColumns;
  operands.insert(operands.end(), kLiterals.begin(), kLiterals.end());
  for (const std::string& left : kColumns)
    for (const std::string& right : operands) {
      for (const char* sign : {" + ", " - ", " * ", " / ", " % "}) Write({left + sign + right});
      for (const char* sign : {" = ", " < ", " >= "}) Ask({left + sign + right});
      Write({"COALESCE(NULL, " + left + ", " + right + ")",
             "CASE WHEN Km = 8 THEN " + left + " ELSE " + right + " END"});
    }
  for (const std::string& left : kLiterals)
    for (const std::string& right : kColumns) {
      Write({left + " - " + right, left + " / " + right});
      Ask({left + " < " + right});
    }
  testing_support::ExpectWholeText(PARVEL_SOURCE_DIR "/tests/embedded/operators.txt", text_.str());
}

TEST_F(ExpressionTest, EveryConversionIsAsWrittenDown) {
  for (const char* type :
       {"bit", "smallint", "int", "money", "float", "datetime", "nvarchar(3)", "nvarchar(30)"}) {
    for (const std::string& column : kColumns) Write({"CAST(" + column + " AS " + type + ")"});
    for (const char* value : {"NULL",
                              "''",
                              "' 12 '",
                              "'abc'",
                              "'true'",
                              "'1,234.56785'",
                              "'1.2.3'",
                              "'-922337203685477.58084'",
                              "-0.4",
                              "5.9",
                              "-5.9",
                              "5.99999999999999999999",
                              "-007.50",
                              ".5",
                              "0.00025",
                              "-0.00025",
                              "-0.004",
                              "70000",
                              "3000000000",
                              "922337203685477.58075",
                              "-922337203685477.5808",
                              "CAST(5.7 AS int)",
                              "CAST(-5.5 AS money)",
                              "CAST(300 AS bit)",
                              "CAST('12' AS money)",
                              "CAST('abc' AS nvarchar(2))",
                              "-(-5.9)",
                              "2.5 + 3.4",
                              "CASE WHEN Km = 7 THEN 5.9 ELSE Km END",
                              "CASE WHEN Km = 7 THEN 5.9 ELSE Valor END"})
      Write({std::string("CAST(") + value + " AS " + type + ")"});
  }
  for (const char* date : {"2024-1-5 10:20",
                           "2024.1.2",
                           "20240105",
                           "2024.02.29 13:05:09",
                           "2024-02-29T13:05:09",
                           "2024.01.01 1:2:3.4",
                           "2024.01.01 10:20:30.123",
                           "2024.01.01 10:20:30.1234",
                           "2024.01.01 10:20.5",
                           "29-02-2024",
                           "2023.02.29",
                           "2024.13.01",
                           "2024.00.01",
                           "2024.01.00",
                           "2024.01.32",
                           "2024.04.31",
                           "hoje",
                           "2024.01.01 24:00",
                           "2024.01.01 23:60",
                           "2024.01.01 23:59:60",
                           "2024.01.01 7",
                           "24.01.01",
                           "1753.01.01",
                           "1752.12.31",
                           "9999.12.31 23:59:59",
                           "10000.01.01",
                           "2024.01",
                           " 2024.01.02 ",
                           "2024.01-02",
                           "2024.01.01 x",
                           "13:05",
                           "2024.12.31 12:00 PM",
                           "2024011",
                           "202401055"})
    Write({std::string("CAST('") + date + "' AS datetime)"});
  for (const char* style : {"102", "105", "120", "101", "0"})
    Write({std::string("CONVERT(nvarchar(10), Data, ") + style + ")",
           std::string("CONVERT(nvarchar(30), Data, ") + style + ")",
           std::string("CONVERT(int, Km, ") + style + ")"});
  testing_support::ExpectWholeText(PARVEL_SOURCE_DIR "/tests/embedded/conversions.txt", text_.str());
}

TEST_F(ExpressionTest, EveryFunctionAndConditionIsAsWrittenDown) {
  Write({"Nome + ' x'",
         "Nome + CAST('x' AS nvarchar(5))",
         "'it''s'",
         "Nome + +'x'",
         "LEN('ab  ') + '1'",
         "-Km % 4",
         "LEFT('a€😀b', 3)",
         "LEFT('a€😀b', 4)",
         "LEFT(Nome, CAST('2' AS int))",
         "LEFT(Nome, +2)",
         "LEFT(Nome, -1)",
         "CASE WHEN Notas = Notas THEN 1 END",
         "CASE WHEN Km = 0 THEN 1 / 0 ELSE 2 END",
         "Km * 2000000000",
         "CASE Km WHEN 7 THEN 'sete' ELSE 'outro' END",
         "CASE Nome WHEN N'ÁVILA' THEN 1 END",
         "Km / (Km - 7)",
         "Valor * 0.0003",
         "CAST(500 - Valor + Valor AS nvarchar(10))",
         "getdate()",
         "Km + COUNT(*)",
         "Data - 300000",
         "Data + 3000000",
         "Data + Km * 500000",
         "lower(Nome)",
         "datediff(d, '1899-12-29 23:59:59', '1899-12-30')",
         "DATEDIFF(day, '2024.01.01 23:59:59', '2024.01.01')",
         "datediff(d, NULL, Data)",
         "datediff(month, Data, Data)",
         "datediff(d, getdate(), Data)",
         "datediff(d, 'x', Data)"});
  for (const std::string& column : kColumns) {
    for (const char* function : {"LEN", "SUM", "MIN", "MAX", "AVG", "COUNT", "-"})
      Write({function + ("(" + column + ")")});
    Write({"LEFT(" + column + ", 2)", "ISNULL(" + column + ", 'sem')", "ISNULL(Notas, " + column + ")",
           "datediff(d, " + column + ", Data)"});
    Ask({column + " IS NULL", column + " IN ('7', 'ávila')", column + " LIKE '%2%'"});
  }
  Ask({"N'ab ' = 'AB'",
       "'a' < 'á'",
       "'á' < 'b'",
       "'a' = 'á'",
       "Km = N' 7 '",
       "Km > N''",
       "NULL = NULL",
       "Valor > 60.49999",
       "NOT Valor = 60.50001",
       "Valor < 99999999999999999999",
       "Data > ''",
       "'1899-12-31' > Data",
       "Nome LIKE 'áV%A'",
       "Nome LIKE 'avila'",
       "'ab ' NOT LIKE 'ab'",
       "'ab' LIKE 'a[b'",
       "'cab' LIKE '[a-c]_b'",
       "'cab' LIKE '[d-f]_b'",
       "'x' NOT LIKE '[^x]'",
       "'a%b' LIKE 'a[%]b'",
       "Km NOT IN (1, NULL)",
       "Km IN (1, '7')",
       "NOT (Km = 8 AND Notas = '')",
       "NOT (Notas = '')",
       "Notas IS NULL AND Nome IS NOT NULL",
       "CONVERT(nvarchar(10), Data, 102) = '2024.02.29 '"});
  for (const char* moment : {"1900.01.01", "1900.01.01 00:00:01"}) {
    Run(std::string("UPDATE Tudo SET Data = '") + moment + "'");
    Ask({"Data > ''", "Data = ''"});
  }
  for (const char* money : {"922337203685477.5807", "-922337203685477.5807", "0.0001"}) {
    Fill(money);
    Write({"Valor", "Valor - 0.0001", "Valor + 0.0001", "Valor * 2", "Valor / 3", "-Valor",
           "CAST(Valor AS nvarchar(30))", "CAST(Valor AS int)", "SUM(Valor)"});
    Ask({"Valor > 922337203685477.5806", "Valor = 922337203685477.5807", "Valor < 922337203685478"});
    Run("INSERT INTO Tudo (Valor) VALUES (1)");
    Write({"SUM(Valor)"});
  }
  testing_support::ExpectWholeText(PARVEL_SOURCE_DIR "/tests/embedded/functions.txt", text_.str());
}

}  // namespace
}  // namespace embedded_tests
