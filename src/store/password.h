#pragma once

#include <optional>
#include <string>

#include "sqlserver/secret.h"

namespace store {

/// The password in the environment (PARVEL_SENHA), which loses it: no program started from here inherits it.
/// To be called while the program has one thread.
std::optional<sqlserver::Secret> TakePassword();

/// The password for a server as far as nobody need be asked: from the environment (PARVEL_SENHA), else from a
/// file, when one is named. Throws as `PasswordFromFile`.
std::optional<sqlserver::Secret> KnownPassword(const std::string& file);

/// The same, else asked of whoever sits at the terminal; empty when nobody does.
sqlserver::Secret PasswordFor(const std::string& place, const std::string& file);

/// The first line of a file that only its owner can read. Throws std::runtime_error otherwise.
std::string PasswordFromFile(const std::string& file);

}  // namespace store
