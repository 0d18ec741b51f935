#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "entry/vehicle_field.h"

class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;

namespace desktop {

class ListPage;
struct MarkedRows;

/// Asks for a field and its new value for many vehicles, and shows what each has now.
class VehicleFieldDialog : public QDialog {
  Q_OBJECT

 public:
  VehicleFieldDialog(zorCrmParvel::DataAccessRef bd, std::vector<std::string> plates, QWidget* parent);

  entry::VehicleField Field() const;
  std::string Value() const;
  /// The vehicles with what they hold now.
  const std::vector<entry::VehicleValue>& Vehicles() const { return vehicles_; }
  QComboBox* field() const { return field_; }
  QComboBox* value() const { return value_; }

 private:
  void Build();
  void ShowField();
  void ShowDifferences();
  bool HasValue() const;
  QString Shown(const std::string& value) const;

  zorCrmParvel::DataAccessRef bd_;
  std::vector<std::string> plates_;
  std::vector<entry::VehicleValue> vehicles_;
  QComboBox* field_;
  QComboBox* value_;
  QTableWidget* rows_;
  QLabel* sum_;
  QPushButton* change_;
  bool typed_ = false;  // into the field for the value
};

/// The command on the rows of the vehicles' list: asks, and changes them as one act.
void ChangeVehicles(ListPage& page, const MarkedRows& rows);

}  // namespace desktop
