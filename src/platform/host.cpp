#include "platform/host.h"

#include <atomic>

namespace platform {
namespace {

/// Readers on other threads ask it for the time.
std::atomic<Host*>& Installed() {
  static std::atomic<Host*> host = nullptr;
  return host;
}

}  // namespace

Host& Host::Current() {
  Host* const host = Installed();
  if (host == nullptr) throw RuntimeError(kObjectNotSet, "Host");
  return *host;
}

HostInstallation::HostInstallation(Host& host) : previous_(Installed().exchange(&host)) {}
HostInstallation::~HostInstallation() { Installed() = previous_; }

}  // namespace platform
