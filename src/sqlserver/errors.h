#pragma once

#include <string>

#include "sqlserver/odbc.h"

namespace sqlserver {

/// True when the connection is gone, so that nothing can be done on it any more.
bool IsConnectionLost(const OdbcFailure& failure);

/// True when the time limit passed without an answer.
bool IsTimeout(const OdbcFailure& failure);

/// Raises the module's error for a connection that could not be made: -2147467259, what to do about it, and
/// what the server or the driver said.
[[noreturn]] void RaiseNotConnected(const OdbcFailure& failure, const std::string& place);

/// Raises the module's error for a statement that failed on an open connection: the number that the module
/// knows, the server's words, and what to do where the user can do something.
[[noreturn]] void RaiseRefused(const OdbcFailure& failure);

/// Raises -2147467259: the time limit passed without an answer.
[[noreturn]] void RaiseTooSlow(const OdbcFailure& failure);

/// Raises -2147467259: the connection broke while something was under way. `written` when a write may have
/// reached the server.
[[noreturn]] void RaiseLost(const OdbcFailure& failure, const std::string& place, bool written);

}  // namespace sqlserver
