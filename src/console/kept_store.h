#pragma once

#include <memory>

#include "console/calls.h"
#include "history/keeping_store.h"

namespace console {

/// Opens the database that the call names, with its history: what is written through it is remembered.
std::shared_ptr<history::KeepingStore> OpenKept(const Calls& calls);

/// `parvel verificar --figuras`: tells the vehicles whose figures are not what their events give, and with
/// `correct` puts them right. Exit code as of `verificar`.
int RunFiguresCheck(const Calls& calls, bool correct);

}  // namespace console
