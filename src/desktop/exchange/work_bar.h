#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <functional>

#include "exchange/plan/plan_row.h"

class QLabel;
class QProgressBar;

namespace desktop {

/// A bar that shows how far long work has come, with the rows and the time that is left, and stops it. The
/// window stays alive meanwhile. Work that takes less than half a second shows nothing.
class WorkBar : public QWidget {
  Q_OBJECT

 public:
  explicit WorkBar(QWidget* parent);

  bool IsBusy() const { return busy_; }
  /// Runs work of this name, which calls the progress that it is given now and then, until it has ended or
  /// been cancelled; an error is shown. False unless it has ended.
  bool Run(const QString& name, const std::function<void(const exchange::Progress&)>& work);
  void Cancel() { cancelled_ = true; }

 Q_SIGNALS:
  /// From when the user sees that there is work, and can act meanwhile, until it has ended.
  void Working(bool working);

 private:
  bool Tick(std::size_t done, std::size_t total);
  QString Left(std::size_t done, std::size_t total) const;

  QLabel* name_;
  QProgressBar* bar_;
  QElapsedTimer since_;
  qint64 shown_ = 0;  // milliseconds after the beginning
  bool busy_ = false;
  bool cancelled_ = false;
};

}  // namespace desktop
