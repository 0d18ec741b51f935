#include "host/statement.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/runtime_error.h"

namespace zorCrmParvel {
namespace {

std::string Outcome(const Statement& statement) {
  try {
    statement.Verify();
    return "sent";
  } catch (const platform::RuntimeError& error) {
    EXPECT_EQ(error.number(), platform::kStatementRefused);
    return error.description();
  }
}

Statement ByCode(const std::string& code) {
  return {"SELECT a FROM t WHERE (Codigo = N'", value(code), "')"};
}

TEST(Statement, IsThePlainConcatenation) {
  const std::string name = "zor_PV_Marcas";
  Statement s{"Delete  From ", fixed(name), " ", " WHERE (Id ='", value(42), "' )"};
  EXPECT_EQ(s.text(), "Delete  From zor_PV_Marcas  WHERE (Id ='42' )");
  s << " and x=" << value(-7);
  EXPECT_EQ(s.text(), "Delete  From zor_PV_Marcas  WHERE (Id ='42' ) and x=-7");
  EXPECT_EQ(Outcome(s), "sent");
}

TEST(Statement, AValueStaysInsideItsLiteral) {
  const struct {
    const char* code;
    const char* outcome;
  } cases[] = {
      {"ABC", "sent"},
      {"", "sent"},
      {"O''Brien", "sent"},
      {"''", "sent"},
      {"a--b /* [x] \" ;", "sent"},
      {"D'Arcy", "Incorrect syntax near 'Arcy'."},
      {"'", "Unclosed quotation mark after the character string '')'."},
      {"x'", "Unclosed quotation mark after the character string 'x')'."},
      {"x') or (1=1", "Unclosed quotation mark"},
      {"x' or Codigo<>'", "Incorrect syntax near 'x' or Codigo<>''."},
      {"'''", "Unclosed quotation mark"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.code);
    EXPECT_EQ(Outcome(ByCode(c.code)).find(c.outcome), 0U) << Outcome(ByCode(c.code));
  }
}

TEST(Statement, TwoValuesCannotOpenALiteralBetweenThem) {
  const auto both = [](const char* a, const char* b) {
    return Outcome({"SELECT a FROM t WHERE a='", value(a), "' and b='", value(b), "'"});
  };
  EXPECT_EQ(both("x", "y"), "sent");
  EXPECT_NE(both("x'", " or 1=1 --"), "sent");
  EXPECT_NE(both("x'", "'y"), "sent");
  EXPECT_NE(both("x'", "y''"), "sent");
}

TEST(Statement, ANumberIsNoMoreThanANumber) {
  const auto kind = [](const std::string& v) { return Outcome({"SELECT a FROM t WHERE Tipo=", value(v)}); };
  for (const char* fine : {"1", "-12", "1.5", "+3"}) EXPECT_EQ(kind(fine), "sent") << fine;
  for (const char* bad : {"1 or 1=1", "", "1;", "a", "1.2.3", "-", "'1'"})
    EXPECT_NE(kind(bad), "sent") << bad;
  EXPECT_NE(Outcome({"SELECT a FROM t WHERE Tipo=-", value("-1 ")}), "sent");
}

}  // namespace
}  // namespace zorCrmParvel
