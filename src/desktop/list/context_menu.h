#pragma once

#include <functional>

#include "platform/screen/popup_menu.h"

class QMenu;

namespace desktop {

/// Fills a menu with the commands of a model that are shown; `run` is told the one that is chosen.
void FillMenu(QMenu& menu, const platform::PopUpMenu& commands, const std::function<void(long)>& run);

}  // namespace desktop
