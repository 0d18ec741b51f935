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

std::shared_ptr<embedded::Database> BareDatabase() {
  embedded::OpenOptions options;
  options.schema =
      "-- versão 1\nCREATE TABLE zor_PV_Marcas (Codigo nvarchar(10) NOT NULL, Nome nvarchar(50) NULL, "
      "CONSTRAINT PK PRIMARY KEY (Codigo));";
  return embedded::Database::Open(":memory:", options);
}

Table Rows(const RecordsetRef& rows) {
  Table all(static_cast<std::size_t>(rows->RecordCount()));
  for (std::size_t r = 0; r < all.size(); ++r)
    for (std::size_t c = 0; c < rows->FieldList().size(); ++c) {
      const platform::Cell& cell = rows->CellAt(r, c);
      const bool bytes = !cell.IsNull() && cell.type() == platform::FieldType::kBytes;
      all[r].push_back(cell.IsNull() ? "NULL" : bytes ? std::string(cell.block()) : cell.ToText());
    }
  return all;
}

Table Rows(const DataAccessRef& bd, const std::string& statement) {
  RecordsetRef rows;
  bd->AbrirLeitura("", statement.c_str(), rows);
  return Rows(rows);
}

}  // namespace testing_support
