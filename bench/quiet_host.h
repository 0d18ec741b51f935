#pragma once

#include "console/console_host.h"

#include <iostream>

namespace bench {

/// The terminal's host with its messages on the error stream, installed for as long as it lives.
class QuietHost {
 private:
  console::ConsoleHost host_{std::cerr};
  platform::HostInstallation installation_{host_};
};

}  // namespace bench
