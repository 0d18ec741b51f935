#pragma once

class QWidget;

namespace desktop {

/// Shows the page of keys, modally.
void ShowKeys(QWidget* parent);
/// Says what the program is and which version.
void ShowAbout(QWidget* parent);

}  // namespace desktop
