#pragma once

#include <string>

#include "platform/runtime_error.h"

namespace embedded {

/// Raises error -2147217900 with the server's words: a statement that it would refuse, or that fails on a
/// value.
[[noreturn]] inline void Refuse(const std::string& words) {
  throw platform::RuntimeError(platform::kStatementRefused, "", words);
}

/// The words for a statement that is sound, but more than the engine takes.
[[noreturn]] inline void RefuseAsTooComplex() {
  Refuse(
      "The query processor ran out of internal resources and could not produce a query plan. Please simplify "
      "the query.");
}

}  // namespace embedded
