#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "embedded/database.h"

/// A server that speaks the module's SQL behind the driver manager's functions, which stand in this program
/// before the real ones: Debian's ODBC drivers either need a server or read neither N'…' nor TOP. It answers
/// from a file of the embedded engine.
namespace bench {

/// The text that connects to it.
std::string StandInConnection(const std::string& file);
/// How long each trip takes from now on.
void DelayTrips(std::chrono::milliseconds delay);

}  // namespace bench
