#pragma once

#include "desktop/shell/options.h"

class QTemporaryDir;

namespace desktop {

class MainWindow;

/// Before the application is made: paints on a screen of its own, which has room for any ficha. The toolkit
/// reads what the screen is like from the folder.
void UseScreenOfItsOwn(const QTemporaryDir& folder);

/// Colours of a dark desktop.
void UseDarkColors();

/// Paints the window, with the ficha that the options ask for open over it, into the options' file. False
/// when the file can't be written.
bool TakePicture(MainWindow& window, const Options& options);

}  // namespace desktop
