#pragma once

#include <fstream>
#include <sstream>
#include <string>

namespace testing_support {

/// All bytes of a file; empty when it can't be read.
inline std::string Contents(const std::string& file) {
  std::stringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

}  // namespace testing_support
