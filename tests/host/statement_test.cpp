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

/// A statement with a value in a text, with two, or with one that is a number.
Statement With(const std::string& a) { return {"SELECT a FROM t WHERE (Codigo = N'", value(a), "')"}; }
Statement With(const std::string& a, const std::string& b) {
  return {"SELECT a FROM t WHERE a='", value(a), "' and b='", value(b), "'"};
}
Statement WithNumber(const std::string& v) { return {"SELECT a FROM t WHERE Tipo=", value(v)}; }

TEST(Statement, IsThePlainConcatenation) {
  const std::string name = "zor_PV_Marcas";
  Statement s{"Delete  From ", fixed(name), " ", " WHERE (Id ='", value(42), "' )"};
  s << " and x=" << value(-7);
  EXPECT_EQ(s.text(), "Delete  From zor_PV_Marcas  WHERE (Id ='42' ) and x=-7");
  EXPECT_EQ(Outcome(s), "sent");
}

TEST(Statement, AValueStaysInsideItsLiteral) {
  for (const char* fine : {"ABC", "", "O''Brien", "''", "a--b /* [x] \" ;"})
    EXPECT_EQ(Outcome(With(fine)) + Outcome(With(fine, "y")), "sentsent") << fine;
  const std::pair<Statement, const char*> cases[] = {
      {With("D'Arcy"), "Incorrect syntax near 'Arcy'."},
      {With("'"), "Unclosed quotation mark after the character string '')'."},
      {With("x'"), "Unclosed quotation mark after the character string 'x')'."},
      {With("x') or (1=1"), "Unclosed quotation mark"},
      {With("x' or Codigo<>'"), "Incorrect syntax near 'x' or Codigo<>''."},
      {With("'''"), "Unclosed quotation mark"},
      {With("x'", " or 1=1 --"), "Incorrect"},
      {With("x'", "'y"), "Incorrect"},
      {With("x'", "y''"), "Incorrect"}};
  for (const auto& [statement, outcome] : cases)
    EXPECT_EQ(Outcome(statement).find(outcome), 0U) << statement.text() << ": " << Outcome(statement);
}

TEST(Statement, ANumberIsNoMoreThanANumber) {
  for (const char* fine : {"1", "-12", "1.5", "+3"}) EXPECT_EQ(Outcome(WithNumber(fine)), "sent") << fine;
  for (const char* bad : {"1 or 1=1", "", "1;", "a", "1.2.3", "-", "'1'"})
    EXPECT_NE(Outcome(WithNumber(bad)), "sent") << bad;
  EXPECT_NE(Outcome({"SELECT a FROM t WHERE Tipo=-", value("-1 ")}), "sent");
}

}  // namespace
}  // namespace zorCrmParvel
