#pragma once

#include <QString>
#include <functional>

#include "platform/screen/popup_menu.h"

class QAction;
class QMenu;

namespace desktop {

/// Fills a menu with the commands of a model that are shown; `run` is told the one that is chosen. `whyNot`
/// gives the reason why the user has no right to one; empty when he has.
void FillMenu(QMenu& menu, const platform::PopUpMenu& commands, const std::function<void(long)>& run,
              const std::function<QString(long)>& whyNot = {});

/// Enables a command; one that the user has no right to stays disabled, and tells the reason in the place of
/// what it does.
void Allow(QAction& action, bool enabled, const QString& whyNot);

}  // namespace desktop
