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
    const char* expression;
    const char* expected;
  };

  void ExpectValues(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
      SCOPED_TRACE(c.expression);
      EXPECT_EQ(Value(std::string("SELECT ") + c.expression + " AS x FROM Tudo"), c.expected);
    }
  }
  /// Each is refused with these words.
  void ExpectRefusals(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
      SCOPED_TRACE(c.expression);
      const std::string statement = std::string("SELECT ") + c.expression + " AS x FROM Tudo";
      EXPECT_EQ(ErrorOf([&] { Rows(statement); }), std::string("-2147217900: ") + c.expected);
    }
  }
  bool Holds(const std::string& condition) {
    return Value("SELECT count(*) AS n FROM Tudo WHERE " + condition) == "1";
  }
};

TEST_F(ExpressionTest, Texts) {
  ExpectValues({{"Nome + ' x'", "Ávila x"},
                {"Nome + CAST('x' AS nvarchar(5))", "Ávilax"},
                {"Nome + +'x'", "Ávilax"},
                {"LEFT(Nome, CAST('2' AS int))", "Áv"},
                {"LEFT(Nome, +2)", "Áv"},
                {"Nome + NULL", "NULL"},
                {"Nome + Notas", "NULL"},
                {"'it''s'", "it's"},
                {"LEFT(Nome, 2)", "Áv"},
                {"LEFT('a€😀b', 3)", "a€"},  // half a character is none
                {"LEFT(Nome + '000000000000000 ', 15) + '|'", "Ávila0000000000|"},
                {"LEFT(Km, 1)", "7"},
                {"LEN('ab  ')", "2"},
                {"LEN('ab  ') + '1'", "3"},
                {"cast(Nome as nvarchar(3))", "Ávi"},
                {"COALESCE(Notas, Nome)", "Ávila"},
                {"ISNULL(Notas, 'sem')", "sem"}});
}

TEST_F(ExpressionTest, Numbers) {
  ExpectValues({{"N'5' + 1", "6"},
                {"Km / 2", "3"},
                {"-Km % 4", "-3"},
                {"Razao * 2", "0,5"},
                {"3000000000", "3000000000"},
                {"COALESCE(Activa, 0)", "1"},
                {"cast(' 12 ' as int)", "12"},
                {"cast('' as int)", "0"},
                {"cast(Razao as int)", "0"},
                {"cast('true' as bit)", "True"},
                {"SUM(Ano)", "2024"},
                {"cast(5.9 as int)", "5"},
                {"cast(-5.9 as int)", "-5"},
                {"cast(-(-5.9) as smallint)", "5"},
                {"cast(5.99999999999999999999 as int)", "5"},
                {"cast(COALESCE(NULL, 5.9, 1) as int)", "5"},
                {"cast(CASE WHEN Km = 7 THEN 5.9 ELSE Km END as int)", "5"},
                {"cast(2.5 + 3.4 as int)", "5"},
                {"cast(CASE WHEN Km = 7 THEN 5.9 ELSE Valor END as int)", "6"},
                {"cast(-0.4 as bit)", "True"},
                {"cast(-007.50 as nvarchar(10))", "-7.50"},
                {"cast(.5 as nvarchar(10))", "0.5"},
                {"cast(CAST(5.5 AS money) AS int)", "6"},
                {"cast(CAST(-5.5 AS money) AS int)", "-6"},
                {"cast(CAST(5.7 AS int) AS money)", "5"},
                {"cast(CAST(300 AS bit) AS int)", "1"},
                {"cast(CAST(5.55 AS money) AS nvarchar(10))", "5.55"},
                {"cast(CAST('12' AS money) AS nvarchar(10))", "12.00"},
                {"cast(CAST('abc' AS nvarchar(2)) AS nvarchar(5))", "ab"},
                {"CONVERT(nvarchar(10), CAST('2024.1.2' AS datetime), 105)", "02-01-2024"},
                {"cast(Km as bit)", "True"},
                {"cast(Km as nvarchar(10))", "7"},
                {"CASE WHEN Km = 7 THEN Km ELSE 2.5 END", "7"}});
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
  ExpectValues({{"Valor - 0.1", "60,4"},
                {"Valor - Km", "53,5"},
                {"Valor * 3", "181,5"},
                {"Valor * Valor", "3660,25"},
                {"Valor * 0.0003", "0,0182"},  // 0.01815, a tie away from zero
                {"Valor / 4", "15,125"},
                {"Valor / 7", "8,6428"},
                {"SUM(Valor)", "60,5"},
                {"cast(Valor as int)", "61"},
                {"cast(Valor as nvarchar(10))", "60.50"},
                {"cast(500 - Valor + Valor as nvarchar(10))", "500.00"},
                {"cast(cast(-0.125 as money) as nvarchar(10))", "-0.13"},
                {"cast(cast(-0.004 as money) as nvarchar(10))", "0.00"},
                {"cast(0.00025 as money)", "0,0003"},
                {"cast(-0.00025 as money)", "-0,0003"},
                {"cast(-922337203685477.5808 as money)", "-922337203685477,5808"},
                {"cast('-922337203685477.58084' as money)", "-922337203685477,5808"},
                {"cast('1,234.56785' as money)", "1234,5679"},
                {"cast('' as money)", "0"}});
  ExpectRefusals({{"cast('1.2.3' as money)",
                   "Cannot convert a char value to money. The char value has incorrect syntax."},
                  {"cast(922337203685477.58075 as money)",
                   "Arithmetic overflow error converting expression to data type money."},
                  {"Valor / 0", "Divide by zero error encountered."}});
}

TEST_F(ExpressionTest, MoneyIsExactToTheEndsOfItsRange) {
  Run("UPDATE Tudo SET Valor = 922337203685477.5807");
  EXPECT_EQ(Value("SELECT cast(Valor as nvarchar(30)) AS x FROM Tudo"), "922337203685477.58");
  EXPECT_EQ(Value("SELECT Valor AS x FROM Tudo"), "922337203685477,5807");
  EXPECT_EQ(Value("SELECT Valor - 0.0001 AS x FROM Tudo"), "922337203685477,5806");
  EXPECT_TRUE(Holds("Valor > 922337203685477.5806 AND Valor = 922337203685477.5807"));
  EXPECT_FALSE(Holds("Valor = 922337203685477.5806"));
  EXPECT_TRUE(Holds("Valor < 922337203685478"));
  ExpectRefusals({{"Valor + 0.0001", "Arithmetic overflow error converting expression to data type money."},
                  {"Valor * 2", "Arithmetic overflow error converting expression to data type money."}});
  Run("INSERT INTO Tudo (Valor) VALUES (1)");
  EXPECT_NE(ErrorOf([&] { Rows("SELECT SUM(Valor) AS x FROM Tudo"); }).find("overflow"), std::string::npos);

  Run("UPDATE Tudo SET Valor = -922337203685477.5807 WHERE Id = 1");
  EXPECT_EQ(Value("SELECT Valor - 0.0001 AS x FROM Tudo WHERE Id = 1"), "-922337203685477,5808");
  EXPECT_EQ(Value("SELECT cast(Valor - 0.0001 as nvarchar(30)) AS x FROM Tudo WHERE Id = 1"),
            "-922337203685477.58");
}

TEST_F(ExpressionTest, Dates) {
  ExpectValues({{"CONVERT(nvarchar(10), Data, 102)", "2024.02.29"},
                {"CONVERT(nvarchar(10), Data, 105)", "29-02-2024"},
                {"CONVERT(nvarchar(10), Data, 120)", "2024-02-29"},
                {"CONVERT(nvarchar(30), Data, 120)", "2024-02-29 13:05:09"},
                {"cast(Data as nvarchar(30))", "Feb 29 2024  1:05PM"},
                {"cast('2024-1-5 10:20' as datetime)", "05-01-2024 10:20:00"},
                {"cast('20240105' as datetime)", "05-01-2024"},
                {"cast('' as datetime)", "01-01-1900"},
                {"Data + 1", "01-03-2024 13:05:09"},
                {"Data + Km", "07-03-2024 13:05:09"},
                {"Data - 60", "31-12-2023 13:05:09"},
                {"getdate()", "01-03-2024 12:00:00"},
                {"datediff(d, getdate(), Data)", "-1"},
                {"datediff(d, Data, '2024.03.01')", "1"},
                {"DATEDIFF(day, '2024.01.01 23:59:59', '2024.01.01')", "0"},
                {"datediff(d, '1899-12-29 23:59:59', '1899-12-30')", "1"},
                {"datediff(d, NULL, Data)", "NULL"}});
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

TEST_F(ExpressionTest, Cases) {
  ExpectValues({{"CASE Km WHEN 7 THEN 'sete' ELSE 'outro' END", "sete"},
                {"CASE Nome WHEN N'ÁVILA' THEN 1 END", "1"},
                {"CASE WHEN Km > 7 THEN 1 END", "NULL"},
                {"CASE WHEN Notas = Notas THEN 1 END", "NULL"},
                {"CASE WHEN Km = 0 THEN 1 / 0 ELSE 2 END", "2"}});
}

TEST_F(ExpressionTest, Conditions) {
  for (const char* condition :
       {"N'ab ' = 'AB'",
        "'a' <> 'á'",
        "'a' < 'á'",
        "'á' < 'b'",
        "'Z' > 'a'",
        "Nome = N'ÁVILA '",
        "Nome IN ('x', 'ávila')",
        "Ano = '2024'",
        "Km = N' 7 '",
        "Km > N''",
        "Activa = 1",
        "Activa = '1'",
        "Valor = 60.5",
        "Valor > 60.49999",
        "Valor < 60.50001",
        "NOT Valor = 60.50001",
        "Valor < 99999999999999999999",
        "Km < 3000000000",
        "Data > ''",
        "Data > '2024.02.29'",
        "Data < '2024-03-01'",
        "CONVERT(nvarchar(10), Data, 102) = '2024.02.29 '",
        "Data = '2024.02.29 13:05:09'",
        "Data <'2050-12-31'",
        "LEFT(Nome + '000 ', 6) + CONVERT(nvarchar(10), Data, 102) = left('ávila' + '000', 6) + '2024.02.29'",
        "Nome LIKE 'áV%A'",
        "'ab ' NOT LIKE 'ab'",
        "'cab' LIKE '[a-c]_b'",
        "'x' NOT LIKE '[^x]'",
        "'a%b' LIKE 'a[%]b'",
        "Km IN (1, '7')",
        "Notas IS NULL AND Nome IS NOT NULL",
        "NOT (Km = 8 AND Notas = '')"}) {
    SCOPED_TRACE(condition);
    EXPECT_TRUE(Holds(condition));
  }
  for (const char* condition :
       {"'a' = 'á'", "Km = N''", "NULL = NULL", "Km NOT IN (1, NULL)", "NOT (Notas = '')",
        "Nome LIKE 'avila'", "'ab' LIKE 'a[b'", "'1899-12-31' > Data"}) {
    SCOPED_TRACE(condition);
    EXPECT_FALSE(Holds(condition));
  }
}

TEST_F(ExpressionTest, EmptyTextIsTheFirstDayOf1900) {
  Run("UPDATE Tudo SET Data = '1900.01.01'");
  EXPECT_FALSE(Holds("Data > ''"));
  Run("UPDATE Tudo SET Data = '1900.01.01 00:00:01'");
  EXPECT_TRUE(Holds("Data > ''"));
}

}  // namespace
}  // namespace embedded_tests
