#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/date.h"

namespace store {

/// A copy of a database that the program made by itself.
struct KeptCopy {
  std::string file;
  platform::Date day;  // on which it was made
};

/// Of the days on which copies were made, those whose copy stays: the last seven days, and the last copy of
/// each of the last four weeks (from Monday) and of the last twelve months, the present ones included.
std::set<platform::Date> DaysThatStay(const std::vector<platform::Date>& days, platform::Date today);

/// The copies that the program makes of one database file by itself, at most one a day, in a folder of
/// theirs.
class KeptCopies {
 public:
  /// `chosen` is the folder that the user wants them in, which other databases may share; empty: beside the
  /// database.
  KeptCopies(std::string database, const std::string& chosen);

  const std::string& folder() const { return folder_; }
  /// Newest first. A folder that can't be read holds none.
  std::vector<KeptCopy> All() const;
  /// Makes today's copy, compared with the database, and removes those that need not stay; nothing when there
  /// is one of today. True when a copy was made. Errors as of `embedded::Database::CopyTo`, and
  /// std::runtime_error when the folder can't be made; what was there is then still there. May take as long
  /// as the database is large: for a thread of its own.
  bool Keep(platform::Date today) const;

 private:
  std::string FileOf(platform::Date day) const;

  std::string database_;
  std::string folder_;
};

/// What a database file holds, for people: "504 viaturas, 500 motoristas, 12345 eventos". Errors as of
/// `embedded::Database::Rows`.
std::string Holdings(const std::string& file);

}  // namespace store
