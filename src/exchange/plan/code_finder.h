#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "exchange/profile/import_kinds.h"
#include "exchange/profile/profile.h"
#include "host/data_access.h"

namespace exchange {

/// What a file's text means as a code.
struct FoundCode {
  enum class How { kFound, kUnknown, kSeveral };
  How how = How::kUnknown;
  std::string code;                     // as the table writes it; the text itself when it isn't known
  std::vector<std::string> candidates;  // of kSeveral
};

/// A code with its name.
struct NamedCode {
  std::string code;
  std::string name;
};

/// Finds the codes that a file means: by what was learned, by the code itself (plates without regard to
/// hyphens, blanks and case, numbers without zeros before them), by the name (of drivers in any order).
/// Tables are read once, when they are first asked for.
class CodeFinder {
 public:
  explicit CodeFinder(zorCrmParvel::DataAccessRef bd) : bd_(std::move(bd)) {}

  /// `table` as of `CodeTableOf`.
  const FoundCode& Find(const std::string& table, const std::string& column, const std::string& text,
                        const Profile& profile);
  /// A code that is to be created, found from now on.
  void Add(const std::string& table, const NamedCode& code);
  /// Forgets what was found, after something was learned.
  void Forget() { found_.clear(); }
  const std::vector<NamedCode>& Codes(const std::string& table) { return TableOf(table).codes; }
  /// True when the fleet writes its Portuguese plates with hyphens; true for an empty fleet.
  bool Hyphens();

 private:
  struct Table {
    bool read = false;
    std::vector<NamedCode> codes;
    std::unordered_multimap<std::string, std::size_t> byCode;
    std::unordered_multimap<std::string, std::size_t> byName;
  };
  Table& TableOf(const std::string& table);
  static void Enter(Table& table, const std::string& name, NamedCode code);
  FoundCode Look(const std::string& table, const std::string& text);

  zorCrmParvel::DataAccessRef bd_;
  std::map<std::string, Table> tables_;
  std::unordered_map<std::string, FoundCode> found_;  // by column and text
};

}  // namespace exchange
