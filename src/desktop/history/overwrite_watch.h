#pragma once

#include <vector>

#include "history/overwritten.h"

class QWidget;

namespace desktop {

/// Watches for one ficha whether what it stores lies over what others stored since it read its record, and
/// tells at once.
class OverwriteWatch {
 public:
  /// For a ficha that opens with a record which the act under way has read.
  OverwriteWatch();

  /// The ficha shows another record, read by the act that just ended.
  void Shown();
  /// After each act: tells what it wrote over, and offers to store it again.
  void Written(QWidget* parent);

 private:
  history::KeepingStore* store_;  // null when nothing is remembered
  long seen_ = 0;                 // where the history stood when the record was read
};

}  // namespace desktop
