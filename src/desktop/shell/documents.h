#pragma once

#include <QString>

class QWidget;

namespace desktop {

/// True when opening a file runs it: a program or a script, by its name or by what it holds.
bool RunsWhenOpened(const QString& path);

/// Opens a document with the viewer that the system has for it. What would run is never opened; that, and
/// what there is no viewer for, may be saved.
void OpenOrSave(const QString& path, QWidget* parent);

}  // namespace desktop
