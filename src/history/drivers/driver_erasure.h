#pragma once

#include <memory>
#include <string>

#include "history/keeping_store.h"

namespace history {

/// What was done when a driver's personal data were erased.
struct Erased {
  std::string code;       // that stands for the person now
  long places = 0;        // texts elsewhere in which the person was named
  bool fromFile = false;  // nothing of it is left in the file, free pages and log included
};

/// Replaces a driver by a code without a name, for good: in all tables, the archive, the photos and the
/// history. His record, licence classes, photo, documents and attached files go; his events stay under the
/// code, with every sum as it was. Texts in which he is named (by name, address, numbers, telephone, e-mail)
/// are cleared of that, but for the records of other drivers. All of it or nothing. On a server the server's
/// own files are not cleaned. Error 5 when there is no such driver.
Erased EraseDriver(const std::shared_ptr<KeepingStore>& store, const std::string& code);

}  // namespace history
