#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/data_access.h"
#include "platform/date.h"

namespace exchange {

/// The events that vehicles had before an import, each of which stands for one row of the file: of n equal
/// rows in the file and m in the table, n - m are new. Read for many vehicles at once, when the first of them
/// is asked about.
class EventHistory {
 public:
  /// `same`: the columns that tell two events of one moment apart. `seen` is shown every row that is read,
  /// with the plate as the history knows it.
  EventHistory(zorCrmParvel::DataAccessRef bd, const char* table, const char* date,
               std::vector<const char*> same,
               std::function<void(const std::string& plate, platform::Recordset& row)> seen = {});

  /// The vehicles that will be asked about, and between which moments; those of the last months before are
  /// shown as well. Without it all of a vehicle is read when it is asked about.
  void Expect(const std::vector<std::string>& plates, platform::Date oldest, platform::Date newest);
  /// Reads what belongs to a vehicle, unless it is here.
  void Know(const std::string& plate);
  /// True when an event from before holds these values at this moment and stands for no other row of the
  /// file; it stands for this one from now on. `values` as of `Joined`.
  bool Stand(const std::string& plate, platform::Date moment, const std::string& values);
  /// True when all of the vehicle's events were read, however old.
  bool KnowsAll() const { return oldest_.IsZero(); }

  /// A plate as it is compared: the database takes no notice of case and of blanks behind.
  static std::string KeyOf(std::string_view plate);
  // Values of the columns in their order, one after the other.
  static void Join(std::string& values, const std::string& text);
  static void Join(std::string& values, platform::Currency number);

 private:
  std::uint64_t Hash(const std::string& key, platform::Date moment, const std::string& values) const;
  void Read(const std::vector<std::string>& plates);

  zorCrmParvel::DataAccessRef bd_;
  const char* table_;
  const char* date_;
  std::vector<const char*> same_;
  std::function<void(const std::string&, platform::Recordset&)> seen_;
  std::vector<std::string> expected_;
  std::size_t next_ = 0;  // of those expected
  platform::Date oldest_;
  platform::Date newest_;
  std::unordered_set<std::string> known_;
  // How many rows from before hold the same. By 64 bits of their values: of a million rows two that differ
  // are taken for one once in ten million imports.
  std::unordered_map<std::uint64_t, std::int32_t> left_;
};

}  // namespace exchange
