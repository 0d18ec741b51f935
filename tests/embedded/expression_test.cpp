#include "engine_fixture.h"

namespace embedded_tests {
namespace {

/// One row: every expression is worked out on it.
class ExpressionTest : public EngineTest {
 protected:
  ExpressionTest() {
    Run("INSERT INTO Tudo (Nome, Activa, Ano, Km, Valor, Razao, Data) VALUES (N'Ávila', 1, 2024, 7, 60.5, "
        "0.25, '2024.02.29 13:05:09')");
  }

  struct Case {
    const char* expressions;
    const char* expected;
  };

  /// The values of each case, with "; " between them.
  void ExpectValues(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
      std::string values;
      const Table rows = Rows(std::string("SELECT ") + c.expressions + " FROM Tudo");
      for (const std::string& value : rows.at(0)) values += (values.empty() ? "" : "; ") + value;
      EXPECT_EQ(values, c.expected) << c.expressions;
    }
  }
  /// Each is refused with these words.
  void ExpectRefusals(const std::vector<Case>& cases) {
    for (const Case& c : cases)
      EXPECT_EQ(ErrorOf([&] { Rows(std::string("SELECT ") + c.expressions + " AS x FROM Tudo"); }),
                std::string("-2147217900: ") + c.expected)
          << c.expressions;
  }
  void ExpectConditions(bool hold, const std::vector<std::string>& conditions) {
    for (const std::string& condition : conditions)
      EXPECT_EQ(Value("SELECT count(*) AS n FROM Tudo WHERE " + condition), hold ? "1" : "0") << condition;
  }
};

TEST_F(ExpressionTest, Texts) {
  ExpectValues(
      {{"Nome + ' x', Nome + CAST('x' AS nvarchar(5)), 'it''s'", "Ávila x; Ávilax; it's"},
       {"Nome + NULL, Nome + Notas", "NULL; NULL"},
       {"LEFT(Nome, CAST('2' AS int)), LEFT(Nome, +2), LEFT(Km, 1)", "Áv; Áv; 7"},
       {"LEFT('a€😀b', 3)", "a€"},  // half a character is none
       {"LEN('ab  ') + '1', cast(Nome as nvarchar(3))", "3; Ávi"},
       {"COALESCE(Notas, Nome), ISNULL(Notas, 'sem')", "Ávila; sem"},
       {"CASE Km WHEN 7 THEN 'sete' ELSE 'outro' END, CASE Nome WHEN N'ÁVILA' THEN 1 END", "sete; 1"},
       {"CASE WHEN Notas = Notas THEN 1 END, CASE WHEN Km = 0 THEN 1 / 0 ELSE 2 END", "NULL; 2"}});
}

TEST_F(ExpressionTest, Numbers) {
  ExpectValues(
      {{"N'5' + 1, Km / 2, -Km % 4, Razao * 2, 3000000000", "6; 3; -3; 0,5; 3000000000"},
       {"SUM(Ano)", "2024"},
       {"COALESCE(Activa, 0), cast('true' as bit), cast(-0.4 as bit), cast(Km as bit)",
        "1; True; True; True"},
       {"cast(' 12 ' as int), cast('' as int), cast(Razao as int)", "12; 0; 0"},
       {"cast(-5.9 as int), cast(-(-5.9) as smallint), cast(5.99999999999999999999 as int)", "-5; 5; 5"},
       {"cast(COALESCE(NULL, 5.9, 1) as int), cast(2.5 + 3.4 as int)", "5; 5"},
       {"cast(CASE WHEN Km = 7 THEN 5.9 ELSE Km END as int)", "5"},
       {"cast(CASE WHEN Km = 7 THEN 5.9 ELSE Valor END as int)", "6"},
       {"cast(-007.50 as nvarchar(10)), cast(.5 as nvarchar(10)), cast(Km as nvarchar(10))", "-7.50; 0.5; 7"},
       {"cast(CAST(-5.5 AS money) AS int), cast(CAST(5.7 AS int) AS money)", "-6; 5"},
       {"cast(CAST('12' AS money) AS nvarchar(10)), cast(CAST(300 AS bit) AS int)", "12.00; 1"},
       {"cast(CAST('abc' AS nvarchar(2)) AS nvarchar(5)), CASE WHEN Km = 7 THEN Km ELSE 2.5 END", "ab; 7"},
       {"CONVERT(nvarchar(10), CAST('2024.1.2' AS datetime), 105)", "02-01-2024"}});
  ExpectRefusals(
      {{"cast('x' as int)", "Conversion failed when converting the varchar value 'x' to data type int."},
       {"cast(Nome as int)",
        "Conversion failed when converting the nvarchar value 'Ávila' to data type int."},
       {"cast(70000 as smallint)", "Arithmetic overflow error converting expression to data type smallint."},
       {"Km * 2000000000", "Arithmetic overflow error converting expression to data type int."},
       {"Km / (Km - 7)", "Divide by zero error encountered."},
       {"SUM(Activa)", "Operand data type bit is invalid for sum operator."},
       {"Km + COUNT(*)",
        "Column 'Km' is invalid in the select list because it is not contained in either an aggregate "
        "function "
        "or the GROUP BY clause."},
       {"Razao % 2", "Operand data type float is invalid for modulo operator."},
       {"Nome - Nome", "Operand data type nvarchar is invalid for subtract operator."},
       {"cast(2000 as nvarchar(3))",
        "Arithmetic overflow error converting expression to data type nvarchar."}});
}

TEST_F(ExpressionTest, Money) {
  ExpectValues({{"Valor - 0.1, Valor * 3, Valor * Valor, Valor / 4, Valor / 7",
                 "60,4; 181,5; 3660,25; 15,125; 8,6428"},
                {"Valor * 0.0003", "0,0182"},  // 0.01815, a tie away from zero
                {"SUM(Valor)", "60,5"},
                {"cast(Valor as int), cast(Valor as nvarchar(10)), cast(500 - Valor + Valor as nvarchar(10))",
                 "61; 60.50; 500.00"},
                {"cast(cast(-0.125 as money) as nvarchar(10)), cast(cast(-0.004 as money) as nvarchar(10))",
                 "-0.13; 0.00"},
                {"cast(0.00025 as money), cast(-0.00025 as money), cast('' as money)", "0,0003; -0,0003; 0"},
                {"cast(-922337203685477.5808 as money)", "-922337203685477,5808"},
                {"cast('-922337203685477.58084' as money)", "-922337203685477,5808"},
                {"cast('1,234.56785' as money)", "1234,5679"}});
  ExpectRefusals({{"cast('1.2.3' as money)",
                   "Cannot convert a char value to money. The char value has incorrect syntax."},
                  {"cast(922337203685477.58075 as money)",
                   "Arithmetic overflow error converting expression to data type money."},
                  {"Valor / 0", "Divide by zero error encountered."}});
}

TEST_F(ExpressionTest, MoneyIsExactToTheEndsOfItsRange) {
  Run("UPDATE Tudo SET Valor = 922337203685477.5807");
  ExpectValues({{"cast(Valor as nvarchar(30)), Valor, Valor - 0.0001",
                 "922337203685477.58; 922337203685477,5807; 922337203685477,5806"}});
  ExpectConditions(
      true, {"Valor > 922337203685477.5806 AND Valor = 922337203685477.5807", "Valor < 922337203685478"});
  ExpectConditions(false, {"Valor = 922337203685477.5806"});
  ExpectRefusals({{"Valor + 0.0001", "Arithmetic overflow error converting expression to data type money."},
                  {"Valor * 2", "Arithmetic overflow error converting expression to data type money."}});
  Run("INSERT INTO Tudo (Valor) VALUES (1)");
  EXPECT_NE(ErrorOf([&] { Rows("SELECT SUM(Valor) AS x FROM Tudo"); }).find("overflow"), std::string::npos);
  Run("DELETE FROM Tudo WHERE Valor = 1");

  Run("UPDATE Tudo SET Valor = -922337203685477.5807");
  ExpectValues({{"Valor - 0.0001, cast(Valor - 0.0001 as nvarchar(30))",
                 "-922337203685477,5808; -922337203685477.58"}});
}

TEST_F(ExpressionTest, Dates) {
  ExpectValues(
      {{"CONVERT(nvarchar(10), Data, 102), CONVERT(nvarchar(10), Data, 120)", "2024.02.29; 2024-02-29"},
       {"CONVERT(nvarchar(30), Data, 120), cast(Data as nvarchar(30))",
        "2024-02-29 13:05:09; Feb 29 2024  1:05PM"},
       {"cast('2024-1-5 10:20' as datetime), cast('20240105' as datetime), cast('' as datetime)",
        "05-01-2024 10:20:00; 05-01-2024; 01-01-1900"},
       {"Data + Km, Data - 60, getdate()", "07-03-2024 13:05:09; 31-12-2023 13:05:09; 01-03-2024 12:00:00"},
       {"datediff(d, getdate(), Data), datediff(d, Data, '2024.03.01'), datediff(d, NULL, Data)",
        "-1; 1; NULL"},
       {"DATEDIFF(day, '2024.01.01 23:59:59', '2024.01.01')", "0"},
       {"datediff(d, '1899-12-29 23:59:59', '1899-12-30')", "1"}});
  for (const char* text : {"'29-02-2024'", "'2023.02.29'", "'2024.13.01'", "'hoje'", "'2024.01.01 25:00'"})
    ExpectRefusals({{(std::string("cast(") + text + " as datetime)").c_str(),
                     "Conversion failed when converting date and/or time from character string."}});
  ExpectRefusals(
      {{"cast(Data as int)",
        "Implicit conversion from data type datetime to int is not allowed. Use the CONVERT "
        "function to run this query."},
       {"Data - 300000", "Adding a value to a 'datetime' column caused an overflow."},
       {"Data + 3000000", "Arithmetic overflow error converting expression to data type datetime."},
       {"Data + Km * 500000", "Arithmetic overflow error converting expression to data type datetime."},
       {"datediff(month, Data, Data)", "'month' is not a recognized datediff option."},
       {"lower(Nome)", "'lower' is not a recognized built-in function name."}});
}

TEST_F(ExpressionTest, Conditions) {
  ExpectConditions(true, {"N'ab ' = 'AB'", "'a' < 'á'", "'á' < 'b'", "Nome = N'ÁVILA '", "Ano = '2024'",
                          "Km = N' 7 '", "Km > N''", "Activa = 1", "Activa = '1'", "Valor > 60.49999",
                          "NOT Valor = 60.50001", "Km < 3000000000", "Data > ''", "Data > '2024.02.29'",
                          "Data < '2024-03-01'", "Nome LIKE 'áV%A'", "Km IN (1, '7')"});
  ExpectConditions(
      true, {"Nome IN ('x', 'ávila')", "Valor < 99999999999999999999", "'ab ' NOT LIKE 'ab'",
             "Data = '2024.02.29 13:05:09'", "'cab' LIKE '[a-c]_b'", "'x' NOT LIKE '[^x]'",
             "'a%b' LIKE 'a[%]b'", "NOT (Km = 8 AND Notas = '')", "Notas IS NULL AND Nome IS NOT NULL"});
  ExpectConditions(true, {"CONVERT(nvarchar(10), Data, 102) = '2024.02.29 '"});
  ExpectConditions(false, {"'a' = 'á'", "Km = N''", "NULL = NULL", "Km NOT IN (1, NULL)", "NOT (Notas = '')",
                           "Nome LIKE 'avila'", "'ab' LIKE 'a[b'", "'1899-12-31' > Data"});
  Run("UPDATE Tudo SET Data = '1900.01.01'");
  ExpectConditions(false, {"Data > ''"});
  Run("UPDATE Tudo SET Data = '1900.01.01 00:00:01'");
  ExpectConditions(true, {"Data > ''"});
}

}  // namespace
}  // namespace embedded_tests
