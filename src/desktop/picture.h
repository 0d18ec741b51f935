#pragma once

#include "desktop/options.h"

namespace desktop {

class MainWindow;

/// Colours of a dark desktop, for pictures.
void UseDarkColors();

/// Paints the window, with the ficha that the options ask for open over it, into the options' file. False
/// when the file can't be written.
bool TakePicture(MainWindow& window, const Options& options);

}  // namespace desktop
