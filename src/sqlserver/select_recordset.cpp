#include "sqlserver/select_recordset.h"

namespace sqlserver {

SelectRecordset::SelectRecordset(Session& session, const std::string& statement) {
  session.Read(statement, [this](ResultReader& result) {
    Opened(result.fields());
    result.ReadAll(store());
  });
}

}  // namespace sqlserver
