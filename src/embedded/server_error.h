#pragma once

#include <string>

#include "platform/runtime_error.h"

namespace embedded {

/// Raises error -2147217900 with the server's words: a statement that it would refuse, or that fails on a
/// value.
[[noreturn]] inline void Refuse(const std::string& words) {
  throw platform::RuntimeError(platform::kStatementRefused, "", words);
}

}  // namespace embedded
