#include "store/table_watch.h"

#include <algorithm>
#include <array>

#include "platform/text.h"
#include "tsql/lexer.h"

namespace store {
namespace {

bool NamesATable(const std::string& word) {
  static constexpr std::array<std::string_view, 5> kBefore = {"from", "join", "into", "update", "delete"};
  return std::any_of(kBefore.begin(), kBefore.end(),
                     [&](std::string_view each) { return platform::EqualsIgnoringCase(word, each); });
}

std::string InSmallLetters(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return name;
}

}  // namespace

TableNames TablesIn(const std::string& statement) {
  TableNames names;
  tsql::Lexer lexer(statement);
  bool next = false;
  for (tsql::Token token = lexer.Next(); token.kind != tsql::TokenKind::kEnd; token = lexer.Next()) {
    const std::string word =
        token.kind == tsql::TokenKind::kName ? tsql::NameValue(token, statement) : std::string();
    const bool announces = NamesATable(word);
    if (next && !announces && !word.empty()) names.insert(InSmallLetters(word));
    next = announces;
  }
  return names;
}

bool TableWatch::Execute(const std::string& statement) {
  written_.merge(TablesIn(statement));
  return ForwardingStore::Execute(statement);
}

zorCrmParvel::RecordsetRef TableWatch::OpenForEditing(const std::string& statement) {
  written_.merge(TablesIn(statement));
  return ForwardingStore::OpenForEditing(statement);
}

zorCrmParvel::RecordsetRef TableWatch::OpenForReading(const std::string& statement) {
  read_.merge(TablesIn(statement));
  return ForwardingStore::OpenForReading(statement);
}

}  // namespace store
