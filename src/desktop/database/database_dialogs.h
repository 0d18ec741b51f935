#pragma once

#include <QString>

class QWidget;

namespace desktop {

// Each asks for a database file: one to open, a new one, one for a copy, a copy to restore. Empty when the
// user gave up.

QString AskForDatabase(QWidget* parent);
QString AskForNewDatabase(QWidget* parent);
QString AskForCopy(QWidget* parent);
QString AskForCopyToRestore(QWidget* parent);

/// The setting that keeps the database which the user chose.
inline constexpr char kDatabaseSetting[] = "basededados";

}  // namespace desktop
