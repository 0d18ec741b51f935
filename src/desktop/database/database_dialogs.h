#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>

class QWidget;

namespace desktop {

// Each asks for a database file: one to open, a new one, one for a copy, a copy to restore. Empty when the
// user gave up.

QString AskForDatabase(QWidget* parent);
QString AskForNewDatabase(QWidget* parent);
QString AskForCopy(QWidget* parent);
QString AskForCopyToRestore(QWidget* parent);

/// Asks for a folder; empty when the user gave up.
QString AskForFolder(QWidget* parent, const QString& title);

/// The database files that were opened last, newest first, without those that are gone.
QStringList RecentDatabases(const QSettings& settings);
void RememberDatabase(QSettings& settings, const QString& file);

/// The setting that keeps the database which the user chose.
inline constexpr char kDatabaseSetting[] = "basededados";

}  // namespace desktop
