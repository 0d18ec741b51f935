#include <fcntl.h>

#include <iostream>

#include "console/program.h"

namespace {

/// A standard file that the caller closed must not be the next one that is opened: a database, say, into
/// which results would then be written. What is written to this one fails.
void OccupyStandardFiles() {
  for (int file = 0; file <= 2; ++file)
    if (fcntl(file, F_GETFD) == -1) open("/dev/null", O_RDONLY | O_CLOEXEC);
}

}  // namespace

int main(int argc, char** argv) {
  OccupyStandardFiles();
  return console::Run({argv + 1, argv + argc}, std::cout, std::cerr);
}
