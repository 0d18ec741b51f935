#pragma once

#include <vector>

namespace manual {

/// A page as it is written: the name of its file without ".md", and its text.
struct PageFile {
  const char* name;
  const char* text;
};

/// The files of the manual, which the build puts into the program.
const std::vector<PageFile>& PageFiles();

}  // namespace manual
