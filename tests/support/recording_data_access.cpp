#include "support/recording_data_access.h"

#include <gtest/gtest.h>

#include "platform/host.h"

namespace testing_support {

using zorCrmParvel::DataAccess;
using zorCrmParvel::DataAccessRef;
using zorCrmParvel::RecordsetRef;

DataAccess& RecordingDataAccess::Inner() const {
  EXPECT_FALSE(left_) << "a data-access object that is no longer held";
  return *inner_;
}

bool RecordingDataAccess::Execute(const std::string& statement) {
  statements.push_back(statement);
  return Inner().ExecutarSql("", statement.c_str());
}

RecordsetRef RecordingDataAccess::OpenForEditing(const std::string& statement) {
  statements.push_back(statement);
  RecordsetRef rows;
  Inner().AbrirEdicao(statement.c_str(), rows);
  return rows;
}

RecordsetRef RecordingDataAccess::OpenForReading(const std::string& statement) {
  statements.push_back(statement);
  RecordsetRef rows;
  Inner().AbrirLeitura("", statement.c_str(), rows);
  return rows;
}

std::shared_ptr<embedded::Database> MemoryDatabase() {
  embedded::OpenOptions options;
  options.clock = [] { return platform::Now(); };
  return embedded::Database::Open(":memory:", options);
}

Table Rows(const DataAccessRef& bd, const std::string& statement) {
  RecordsetRef rows;
  bd->AbrirLeitura("", statement.c_str(), rows);
  Table all;
  for (; !rows->Eof(); rows->MoveNext()) {
    all.emplace_back();
    for (std::size_t i = 0; i < rows->FieldList().size(); ++i) {
      const platform::Variant value = rows->Fields(i).Value();
      all.back().push_back(value.IsNull() ? "NULL" : value.ToText());
    }
  }
  return all;
}

}  // namespace testing_support
