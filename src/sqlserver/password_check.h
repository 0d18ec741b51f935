#pragma once

#include <string>

#include "sqlserver/connection_text.h"
#include "sqlserver/odbc.h"

namespace sqlserver {

/// Raises -2147467259, before anything is sent, when the connection's driver would take the password for
/// another one: FreeTDS does not make a doubled brace single.
void RequireReadablePassword(const Handle& environment, const ConnectionText& connection,
                             const std::string& password);

}  // namespace sqlserver
