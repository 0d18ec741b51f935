#pragma once

#include <QStringList>
#include <vector>

class QTableWidget;
class QWidget;

namespace desktop {

/// A small table to compare values in: read only, rows chosen whole, the last column takes what is left.
QTableWidget* SideBySide(const std::vector<const char*>& captions, QWidget* parent);
void AddLine(QTableWidget& table, const QStringList& texts);

}  // namespace desktop
