#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "history/view/life.h"

class QPushButton;
class QTableWidget;

namespace desktop {

/// The life of one record: each change with who made it and when, and its undoing.
class LifeDialog : public QDialog {
  Q_OBJECT

 public:
  LifeDialog(std::shared_ptr<history::KeepingStore> store, const std::string& table, std::string key,
             const QString& name, QWidget* parent);

  /// Shows it; true when something was undone.
  static bool Show(const std::shared_ptr<history::KeepingStore>& store, const std::string& table,
                   const std::string& key, const QString& name, QWidget* parent);

 private:
  void Build(const QString& name);
  void Fill();
  void Undo();
  const history::Change* Chosen() const;

  std::shared_ptr<history::KeepingStore> store_;
  const tsql::Table& of_;
  std::string key_;
  std::vector<history::Change> life_;
  QTableWidget* table_;
  QPushButton* undo_;
  bool undone_ = false;
};

}  // namespace desktop
