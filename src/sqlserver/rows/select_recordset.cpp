#include "sqlserver/rows/select_recordset.h"

namespace sqlserver {

SelectRecordset::SelectRecordset(Session& session, const std::string& statement) {
  session.ReadRows(statement, [this](const std::vector<platform::FieldInfo>& fields) -> platform::RowStore& {
    Opened(fields);
    return store();
  });
}

}  // namespace sqlserver
