#include "sqlserver/bulk/brought_numbers.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "sqlserver/dialect.h"

namespace sqlserver {

BroughtNumbers::BroughtNumbers(Session& session, const tsql::Table& table)
    : session_(session),
      table_(table),
      told_(session.dialect().announcesIdentity &&
            std::any_of(table.columns.begin(), table.columns.end(),
                        [](const tsql::Column& column) { return column.identity; })) {
  if (told_) Set("ON");
}

BroughtNumbers::~BroughtNumbers() {
  if (!told_) return;
  try {
    Set("OFF");
  } catch (const platform::RuntimeError&) {
    // the connection is lost, and what it allowed with it
  }
}

void BroughtNumbers::Set(const char* onOrOff) {
  Parameters none;
  session_.Write("SET IDENTITY_INSERT " + Bracketed(table_.name) + " " + onOrOff, none);
}

}  // namespace sqlserver
