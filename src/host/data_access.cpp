#include "host/data_access.h"

namespace zorCrmParvel {

bool DataAccess::ExecutarSql(const std::string& /*reserved*/, const Statement& statement) {
  statement.Verify();
  return Execute(statement.text());
}

bool DataAccess::AbrirEdicao(const Statement& statement, RecordsetRef& rows, long /*lockType*/,
                             long /*commandType*/) {
  statement.Verify();
  rows = OpenForEditing(statement.text());
  return true;
}

bool DataAccess::AbrirLeitura(const std::string& /*reserved*/, const Statement& statement, RecordsetRef& rows,
                              long /*cursorType*/, int /*lockType*/) {
  statement.Verify();
  rows = OpenForReading(statement.text());
  return true;
}

}  // namespace zorCrmParvel
