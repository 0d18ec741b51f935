#pragma once

#include <QDialog>

#include "due/handled.h"

class QDateEdit;
class QLineEdit;

namespace desktop {

class ListPage;
struct MarkedRows;

/// Asks for a note on alerts that are dealt with, and until when others are put off.
class HandlingDialog : public QDialog {
  Q_OBJECT

 public:
  /// `alerts` says which they are.
  HandlingDialog(bool puts_off, const QString& alerts, QWidget* parent);

  due::Handling Handling() const;

 private:
  QDateEdit* until_;
  QLineEdit* note_;
  bool puts_off_;
};

// The commands on the marked rows of a list of alerts.
void PutOffAlerts(ListPage& page, const MarkedRows& rows);
void SettleAlerts(ListPage& page, const MarkedRows& rows);
void ReopenAlerts(ListPage& page, const MarkedRows& rows);

}  // namespace desktop
