#pragma once

#include <functional>
#include <string>

#include "platform/runtime_error.h"

namespace testing_support {

/// The error that `act` raises; its number is 0 when it raises none.
inline platform::RuntimeError FailureOf(const std::function<void()>& act) {
  try {
    act();
  } catch (const platform::RuntimeError& error) {
    return error;
  }
  return {0, {}, {}};
}

inline int NumberOf(const std::function<void()>& act) { return FailureOf(act).number(); }

/// "number: words" of the error; empty when there is none.
inline std::string ErrorOf(const std::function<void()>& act) {
  const platform::RuntimeError error = FailureOf(act);
  return error.number() == 0 ? "" : std::to_string(error.number()) + ": " + error.description();
}

}  // namespace testing_support
