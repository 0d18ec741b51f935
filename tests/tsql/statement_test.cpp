// How statements are read, and what is refused where, held against texts.
#include "reading.h"
#include "support/whole_text.h"

namespace tsql {
namespace {

/// "items | from, joins | where | order", with a bar between the selects of a union; literals have their
/// ordinals.
std::string Told(const Select& select) {
  std::string told;
  for (std::size_t i = 0; i < select.cores.size(); ++i) {
    const SelectCore& core = select.cores[i];
    if (i > 0) told += select.unionAll[i - 1] ? " UNION ALL " : " UNION ";
    if (core.distinct) told += "distinct ";
    if (core.top) told += "top " + std::to_string(*core.top) + " ";
    for (const SelectItem& item : core.items)
      told += (item.star ? item.starTable + "*" : Bracketed(item.expression)) + "=" + item.alias + "@" +
              std::to_string(item.offset) + "; ";
    if (core.from) told += "from " + core.from->Qualifier();
    for (const Join& join : core.joins)
      told += (join.kind == Join::Kind::kLeft ? " left " : " inner ") + join.table.Qualifier() + " on " +
              Bracketed(join.on);
    if (core.where) told += " where " + Bracketed(core.where);
  }
  for (const OrderItem& item : select.orderBy)
    told += " by " + Bracketed(item.expression) + (item.descending ? " desc" : "");
  return told;
}

std::string Told(const Insert& insert) {
  std::string told = "into " + insert.table.name;
  for (const auto& value : insert.values) told += " " + value.column + "=" + Bracketed(value.value);
  return told;
}

std::string Told(const Update& update) {
  std::string told = "update " + update.table.name;
  for (const auto& assignment : update.assignments)
    told += " " + assignment.column + "=" + Bracketed(assignment.value);
  return told + (update.where ? " where " + Bracketed(update.where) : "");
}

std::string Told(const Delete& statement) {
  return "delete " + statement.table.name + (statement.where ? " where " + Bracketed(statement.where) : "");
}

/// What a statement is read as, or why not.
std::string Read(const std::string& statement) {
  std::string told;
  const std::string refusal = Refusal(
      [&] { told = std::visit([](const auto& read) { return Told(read); }, ParseStatement(statement)); });
  return refusal == "accepted" ? told : "! " + refusal;
}

TEST(Statements, AreReadAsWrittenDown) {
  testing_support::ExpectCases(PARVEL_SOURCE_DIR "/tests/tsql/statements.txt", [](std::string input) {
    for (std::size_t at = 0; (at = input.find("\\n", at)) != std::string::npos;) input.replace(at, 2, "\r\n");
    return Read(input);
  });
}

TEST(Statements, TheKnownBadOnesAreRefusedAsWrittenDown) {
  const std::string folder = PARVEL_SOURCE_DIR "/tests/fuzz/corpus/refused/";
  testing_support::ExpectCases(PARVEL_SOURCE_DIR "/tests/tsql/refused.txt",
                               [&](const std::string& file) { return Read(Contents(folder + file)); });
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST(Statements, DepthIsLimitedInEveryDirection) {
  const auto accepts = [](const std::string& value) {
    return Refusal([&] { ParseStatement("SELECT " + value); });
  };
  EXPECT_EQ(accepts(Repeated("(", 199) + "1" + Repeated(")", 199)), "accepted");
  EXPECT_EQ(accepts("1" + Repeated("+1", 200)), "accepted");
  EXPECT_EQ(accepts("1" + Repeated("+1", 200) + ", 1" + Repeated("+1", 200)), "accepted");
  const std::string tooDeep[] = {Repeated("(", 100000) + "1" + Repeated(")", 100000),
                                 Repeated("- ", 100000) + "1", Repeated("f(", 100000),
                                 Repeated("CASE ", 100000), "1" + Repeated("+1", 100000)};
  for (const std::string& value : tooDeep) {
    SCOPED_TRACE(value.substr(0, 10));
    EXPECT_NE(accepts(value).find("Some part of your SQL statement is nested too deeply."),
              std::string::npos);
  }
}

}  // namespace
}  // namespace tsql
