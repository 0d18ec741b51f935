#pragma once

#include <QDialog>
#include <string>
#include <utility>
#include <vector>

#include "host/data_access.h"
#include "reports/definicoes.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QPushButton;
class QWidget;

namespace desktop {

class ReportSource;
class TableView;

/// What an office sets for its reports: one table after the other, a row edited below it.
class SettingsDialog : public QDialog {
  Q_OBJECT

 public:
  SettingsDialog(zorCrmParvel::DataAccessRef database, QWidget* parent);

  /// Shows a definition by its key.
  void Choose(const std::string& key);
  TableView& table() const { return *table_; }
  /// The field of a column; null when there is none.
  QWidget* Field(const std::string& column) const;
  void Save();
  void Remove();

 private:
  void Build();
  void Load();
  void MakeFields();
  void ShowRow();
  std::string TextOf(const std::string& column) const;
  std::vector<std::string> Keys() const;
  const reports::Definicao& definition() const;

  zorCrmParvel::DataAccessRef database_;
  QComboBox* which_;
  ReportSource* source_;
  TableView* table_;
  QWidget* fields_ = nullptr;
  QPushButton* remove_;
  std::vector<std::pair<std::string, QWidget*>> inputs_;
};

}  // namespace desktop
