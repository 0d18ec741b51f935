#pragma once

#include <iosfwd>
#include <string>

#include "store/database_choice.h"

namespace console {

/// What the timer is to do each morning.
struct TimedNotice {
  const store::DatabaseChoice& database;
  std::string passwordFile;
  bool calendarOnly = false;
};

/// Turns on the system's timer, which tells by mail each morning what is due in a database, and turns it off.
/// The exit code; what the system refuses is told, and nothing is left of it.
int InstallTimer(const TimedNotice& notice, std::ostream& out, std::ostream& err);
int RemoveTimer(std::ostream& out, std::ostream& err);

/// A word of a call in a unit of the system: quoted, and with what the system would read into it taken out.
std::string UnitWord(const std::string& word);

}  // namespace console
