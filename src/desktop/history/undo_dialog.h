#pragma once

#include <memory>

#include "exchange/imports/take_back.h"
#include "history/reader.h"

class QWidget;

namespace desktop {

/// Undoes an operation. What somebody changed since is shown side by side with what would be put back, and
/// asked for. False when the user declines.
bool AskAndUndo(const std::shared_ptr<history::KeepingStore>& store, const history::Operation& operation,
                QWidget* parent);

/// Takes an import back, by its number; the history knows of it.
exchange::TakenBack TakeBackNoted(const std::shared_ptr<zorCrmParvel::Store>& store,
                                  const std::string& import);

}  // namespace desktop
