#include "sqlserver/values.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "contract/engines.h"
#include "sqlserver/connection_text.h"
#include "sqlserver/rows/editable_rows.h"
#include "sqlserver/utf16.h"
#include "support/errors.h"
#include "tsql/parser.h"

namespace sqlserver_tests {
namespace {

using contract_tests::NumberOf;
using platform::Currency;

TEST(ServerValuesTest, MoneyIsExactOverItsRange) {
  const std::vector<std::pair<const char*, std::int64_t>> cases = {{"0", 0},
                                                                   {"12.5", 125000},
                                                                   {".5000", 5000},
                                                                   {"-.0001", -1},
                                                                   {"7.", 70000},
                                                                   {"1.00005", 10000},
                                                                   {"1.00015", 10002},
                                                                   {"1.000150001", 10002},
                                                                   {"922337203685477.5807", INT64_MAX},
                                                                   {"-922337203685477.5808", INT64_MIN}};
  for (const auto& [text, units] : cases) EXPECT_EQ(sqlserver::MoneyFromText(text), units) << text;
  for (const std::int64_t units : {INT64_MIN, INT64_C(-1), INT64_C(0), INT64_C(10001), INT64_MAX})
    EXPECT_EQ(sqlserver::MoneyFromText(sqlserver::MoneyText(Currency::FromTenThousandths(units))), units);
  for (const char* text : {"922337203685477.5808", "-922337203685477.5809", "99999999999999999999"})
    EXPECT_EQ(NumberOf([&] { sqlserver::MoneyFromText(text); }), platform::kOverflow) << text;
  for (const char* text : {"", "-", ".", "1,5", "1e3", "x"})
    EXPECT_EQ(NumberOf([&] { sqlserver::MoneyFromText(text); }), platform::kTypeMismatch) << text;
}

TEST(ServerValuesTest, TextGoesThereAndBack) {
  for (const char* text : {"", "abc", "ação €", "\U0001F697 a\U00010FFFF", "\x7F\u0080\u07FF\u0800\uFFFD"})
    EXPECT_EQ(sqlserver::ToUtf8(sqlserver::ToUtf16(text)), text);
  EXPECT_EQ(sqlserver::ToUtf16("\U0001F697").size(), 2u);
  const std::pair<std::u16string, const char*> broken[] = {
      {{u'a', char16_t{0xD83D}, u'b'}, "a\uFFFDb"},
      {{char16_t{0xD83D}}, "\uFFFD"},
      {{char16_t{0xDE97}, u'b'}, "\uFFFDb"},
      {{char16_t{0xD83D}, char16_t{0xD83D}, char16_t{0xDE97}}, "\uFFFD\U0001F697"}};
  for (const auto& [units, text] : broken) EXPECT_EQ(sqlserver::ToUtf8(units), text);
  EXPECT_EQ(NumberOf([] { sqlserver::ToUtf16("a\xFF"); }), platform::kStatementRefused);
}

TEST(ConnectionTextTest, ReadsWhatItIsGivenAndRefusesPasswords) {
  const sqlserver::ConnectionText text(
      " Driver = {ODBC Driver; 18} ;Server=srv; DATABASE=frota;UID=ana;X={a}}b}");
  EXPECT_EQ(text.Get("driver"), "ODBC Driver; 18");
  EXPECT_EQ(text.Get("X"), "a}b");
  EXPECT_EQ(text.Place(), "frota em srv");
  EXPECT_EQ(text.ToText(), "Driver={ODBC Driver; 18};Server=srv;DATABASE=frota;UID=ana;X=a}b;");
  EXPECT_EQ(sqlserver::ConnectionText("frota").WithPassword("a;b}"), "DSN=frota;PWD={a;b}}};");
  EXPECT_EQ(sqlserver::ConnectionText(" frota ").ToText(), "DSN=frota;");
  EXPECT_EQ(sqlserver::ConnectionText(";User = ana ;; Address={ a};DSN=d; ").ToText(),
            "UID=ana;Address={ a};DSN=d;");
  EXPECT_EQ(sqlserver::ConnectionText("Driver=f;Address=a;DSN=d").Place(), "a");
  EXPECT_EQ(sqlserver::ConnectionText("Driver=f;UID=a").Place(), "f");
  const std::pair<const char*, const char*> faults[] = {{"", "está vazia"},
                                                        {" ", "está vazia"},
                                                        {"Server=s;PWD=x", "A senha não vai"},
                                                        {"password={x};Server=s", "A senha não vai"},
                                                        {"Server=s; nada", "não se entende «nada»"},
                                                        {"nada;Server=s", "não se entende «nada»"},
                                                        {"Driver={x", "fechar uma chaveta"},
                                                        {"Driver={x}}", "fechar uma chaveta"},
                                                        {"Driver={x} y;UID=a", "depois de «Driver»"}};
  for (const auto& [bad, says] : faults) {
    const auto error = testing_support::FailureOf([&, bad = bad] { sqlserver::ConnectionText{bad}; });
    EXPECT_EQ(error.number(), platform::kEngineFailure);
    EXPECT_NE(error.description().find(says), std::string::npos) << bad << ": " << error.description();
  }
  using sqlserver::ConnectionText;
  EXPECT_TRUE(ConnectionText::DoublesBraces("a;}"));
  for (const char* sent : {"a}", "a;", "{", "", " "})
    EXPECT_FALSE(ConnectionText::DoublesBraces(sent)) << sent;
  EXPECT_EQ(ConnectionText("frota").WithPassword(""), "DSN=frota;");
}

TEST(ConnectionTextTest, PartsAreReplacedAndTheOthersStay) {
  sqlserver::ConnectionText text("Driver=FreeTDS;Server=a;TDS_Version=7.4;UID=ana");
  text.Set("server", "b");
  text.Set("UID", "");
  text.Set("Database", "frota");
  EXPECT_EQ(text.ToText(), "Driver=FreeTDS;Server=b;TDS_Version=7.4;Database=frota;");
  EXPECT_FALSE(text.NamesUser());
}

TEST(EditableRowsTest, TheKeyIsAddedWhereItLacks) {
  const tsql::Catalog catalog = tsql::ParseSchema(contract_tests::kSchema);
  const auto of = [&](const char* statement) { return sqlserver::EditableRows::Of(statement, catalog); };
  EXPECT_EQ(of("Select Nome as 'from' From PT_Codigos x Where x.Nome = ' from '").statement,
            "Select Nome as 'from' , [x].[Codigo] From PT_Codigos x Where x.Nome = ' from '");
  for (const char* whole : {"SELECT * FROM PT_Codigos", "SELECT Nome, codigo FROM PT_Codigos"}) {
    EXPECT_EQ(of(whole).statement, whole);
    EXPECT_EQ(of(whole).addedKeys, 0u);
  }
  for (const char* other : {"SELECT count(*) AS n FROM PT_Codigos", "SELECT Count(Nome) FROM PT_Codigos",
                            "SELECT max(Nome) FROM PT_Codigos", "SELECT MIN(Nome) FROM PT_Codigos",
                            "SELECT Sum(Km) FROM PT_Tudo", "SELECT DISTINCT Nome FROM PT_Codigos",
                            "SELECT Nome FROM PT_Codigos UNION SELECT Nome FROM PT_Codigos", "SELECT 1 AS x",
                            "DELETE FROM PT_Tudo"})
    EXPECT_EQ(NumberOf([&] { of(other); }), platform::kStatementRefused) << other;
}

}  // namespace
}  // namespace sqlserver_tests
