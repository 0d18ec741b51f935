#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;

namespace desktop {

/// Asks under which name a view is kept, and for whom.
class ViewDialog : public QDialog {
  Q_OBJECT

 public:
  explicit ViewDialog(QWidget* parent);

  QString Name() const;
  /// For the whole office, and not for oneself alone.
  bool ForAll() const;

 private:
  QLineEdit* name_;
  QCheckBox* all_;
};

}  // namespace desktop
