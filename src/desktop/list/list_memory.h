#pragma once

#include <QString>
#include <QVariant>

class QSettings;

namespace desktop {

class TableView;

/// What is remembered of one list between two runs: widths of columns, and how it is shown.
class ListMemory {
 public:
  ListMemory(QSettings& settings, const QString& list) : settings_(settings), list_(list) {}

  /// Gives a table with its columns what was kept; `newest_first` by its dates when nothing was.
  void Restore(TableView& table, bool newest_first) const;
  void Keep(const TableView& table) const;

 private:
  QString Key(const char* name) const;
  void Store(const char* name, const QVariant& value) const;

  QSettings& settings_;
  QString list_;
};

}  // namespace desktop
