#pragma once

#include <QSettings>
#include <QString>
#include <memory>

#include "desktop/database/workspace.h"
#include "desktop/shell/options.h"

namespace desktop {

/// Makes the file that the settings are kept in, for its owner alone, unless it is there. Before it is read.
void KeepPrivate(const QSettings& settings);

/// The database that a call asks for: the one named, the demonstration, the one chosen last time, or the
/// usual one. Throws when there is no place for the usual one.
QString DatabaseFor(const Options& options, const QSettings& settings);

/// The connection of the server that a call asks for, or that was chosen last time; empty for a file.
QString ServerFor(const Options& options, const QSettings& settings);

/// Opens the database that a call asks for, whichever it is. Asks nobody: what stands in the way is thrown.
std::unique_ptr<Workspace> OpenUnasked(const Options& options, const QSettings& settings);
/// The same, for somebody who can be asked for another database or a password; null when they would rather
/// leave.
std::unique_ptr<Workspace> OpenAtStart(const Options& options, QSettings& settings, QWidget* parent);

/// Opens a database. When it can't be used, says why and asks for another one until one opens; null when the
/// user would rather leave. A database chosen so is remembered.
std::unique_ptr<Workspace> OpenOrAsk(QString file, QSettings& settings, QWidget* parent);

}  // namespace desktop
