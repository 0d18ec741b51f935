#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "sqlserver/limits.h"
#include "sqlserver/network_watch.h"
#include "sqlserver/odbc.h"

namespace sqlserver {

/// An open connection. A call on it that the server leaves without an answer ends a second past the limit of
/// a statement.
class Link : public Handle {
 public:
  /// Connects; the text holds the password. Raises `OdbcFailure`.
  Link(const Handle& environment, const std::string& text, const Limits& limits);
  ~Link();
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  std::string Product() const;
  bool IsDead() const;
  /// True after a call that had to be broken off.
  bool BrokeOff() const { return watch_->BrokeOff(); }
  void CommitEach(bool each) const;
  /// Ends what is written together: SQL_COMMIT or SQL_ROLLBACK.
  void End(SQLSMALLINT how) const;
  /// A statement with the limit set.
  std::unique_ptr<OdbcStatement> NewStatement() const;

 private:
  std::chrono::milliseconds Patience() const;

  std::chrono::seconds limit_;
  std::unique_ptr<NetworkWatch> watch_;
};

}  // namespace sqlserver
