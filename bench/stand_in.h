#pragma once

#include <chrono>
#include <functional>
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
using Milliseconds = std::chrono::duration<double, std::milli>;
/// Has each trip told, by its text and how long it took, on the thread that waited for it. Set while no other
/// thread is at work.
void TellTrips(std::function<void(const std::string& text, Milliseconds took)> told);

}  // namespace bench
