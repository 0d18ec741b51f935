#pragma once

#include <iosfwd>

#include "platform/runtime_error.h"

namespace console {

/// The sentence for an error, and in a line of its own what a support desk asks for.
void PrintError(std::ostream& err, const platform::RuntimeError& error);

}  // namespace console
