#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/data_access.h"
#include "platform/date.h"

namespace notice {

/// Whose dates a recipient is told of.
enum class Scope { kAll, kDepartment, kResponsible };

struct Recipient {
  std::string address;
  std::string name;
  Scope scope = Scope::kAll;
  std::string code;    // of the department, or of the driver who is responsible for vehicles
  bool report = true;  // gets the month's costs as well
};

/// How far a recipient was told about something. The values stand in the database.
enum class Stage : std::int16_t { kUntold = 0, kSoon = 1, kOverdue = 2 };

struct Told {
  Stage stage = Stage::kUntold;
  platform::Date when;
};

/// What an office set about mail.
struct MailSettings {
  std::string url;
  std::string from;
  std::string user;
  std::string authority;
};

/// Recipients, settings and what was told, in the hosts' own tables. Failures of the database go to the
/// caller.
class NoticeBook {
 public:
  explicit NoticeBook(zorCrmParvel::DataAccessRef bd) : bd_(std::move(bd)) {}

  std::vector<Recipient> Recipients() const;
  /// Adds a recipient, or changes the one of the address.
  void Put(const Recipient& recipient) const;
  /// False when there is none of the address.
  bool Remove(const std::string& address) const;

  MailSettings Settings() const;
  void Put(const MailSettings& settings) const;

  /// By what was told of.
  std::map<std::string, Told> ToldTo(const std::string& address) const;
  void Remember(const std::string& address, const std::string& uid, const Told& told) const;
  void Forget(const std::string& address, const std::string& uid) const;

 private:
  zorCrmParvel::DataAccessRef bd_;
};

/// An address as mail knows it: one @ with something on both sides and no blank.
bool IsAddress(const std::string& text);

}  // namespace notice
