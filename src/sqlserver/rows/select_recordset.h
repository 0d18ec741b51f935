#pragma once

#include <string>

#include "platform/recordset.h"
#include "sqlserver/session.h"

namespace sqlserver {

/// The rows of a SELECT, all read when it is opened, so that no result is under way on the connection. A
/// failure on any of them is raised then.
class SelectRecordset : public platform::Recordset {
 public:
  SelectRecordset(Session& session, const std::string& statement);

 protected:
  bool Reach(std::size_t row) override { return row < store().rows(); }
  std::size_t Count() override { return store().rows(); }
};

}  // namespace sqlserver
