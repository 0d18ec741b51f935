#pragma once

#include <string>

#include "history/keeping_store.h"

namespace history {

/// Writes everything that is held on a driver into a new or empty folder, which only the user may enter:
/// "motorista.json", a page to read ("motorista.html"), and photo, archived and attached files beside them.
/// Gives the number of files back. Error 5 when there is no such driver or the folder holds something,
/// 75 when it can't be written.
long ExportDriver(KeepingStore& store, const std::string& code, const std::string& folder);

}  // namespace history
