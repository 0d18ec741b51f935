#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/recordset.h"
#include "sqlserver/session.h"
#include "tsql/ast.h"

namespace sqlserver {

/// The statements behind a walk: a SELECT of one table in an order, from a place on, of which the first rows
/// are used and the others only counted.
struct Walk {
  std::string first;  // gives the first rows
  std::string count;  // gives the number of all
  std::string all;

  static constexpr std::size_t kFirstRows = 3;

  /// Nothing for any other statement, which is read whole. A walk compares the beginning of a text that is
  /// put together (LEFT).
  static std::optional<Walk> Of(const std::string& statement, const tsql::Select& select);
};

/// The rows of a walk: the first are read when it is opened, the number when it is asked for, and all of them
/// once a row beyond the first is.
class WalkRecordset : public platform::Recordset {
 public:
  WalkRecordset(std::shared_ptr<Session> session, Walk walk);

 protected:
  bool Reach(std::size_t row) override;
  std::size_t Count() override;

 private:
  void ReadAll();

  std::shared_ptr<Session> session_;
  Walk walk_;
  bool whole_ = false;
  std::optional<std::size_t> count_;
};

}  // namespace sqlserver
