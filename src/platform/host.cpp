#include "platform/host.h"

#include <utility>

namespace platform {
namespace {

Host*& Installed() {
  static Host* host = nullptr;
  return host;
}

}  // namespace

Host& Host::Current() {
  if (Installed() == nullptr) throw RuntimeError(kObjectNotSet, "Host");
  return *Installed();
}

HostInstallation::HostInstallation(Host& host) : previous_(std::exchange(Installed(), &host)) {}
HostInstallation::~HostInstallation() { Installed() = previous_; }

}  // namespace platform
