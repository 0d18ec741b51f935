#pragma once

#include <string>

#include "platform/variant.h"

namespace history {

/// The SHA-256 of some bytes, in 64 hexadecimal digits.
std::string Digest(const platform::Bytes& bytes);

}  // namespace history
