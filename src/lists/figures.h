#pragma once

#include "platform/currency.h"

namespace lists {

/// What numbers come to.
struct Figures {
  long count = 0;  // cells that hold a number
  platform::Currency sum;

  /// Rounded to four decimals; zero of none.
  platform::Currency Mean() const {
    return count == 0 ? platform::Currency()
                      : platform::Currency::FromDouble(sum.ToDouble() / static_cast<double>(count));
  }
};

}  // namespace lists
