#pragma once

#include <QSettings>

#include "desktop/database/workspace.h"
#include "desktop/list/list_catalog.h"
#include "desktop/shell/page.h"

namespace desktop {

/// True when an entry of the side bar can be shown: the module has the list, or the window the page.
bool HasPage(const ListEntry& entry);

/// What an entry of the side bar shows, as a child of `parent`. What is kept of it stands in the settings.
/// The workspace and the settings outlive it.
Page* MakePage(const ListEntry& entry, Workspace& workspace, QSettings& settings, QWidget* parent);

}  // namespace desktop
