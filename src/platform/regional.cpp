#include "platform/regional.h"

namespace platform {
namespace {

Regional& Settings() {
  static Regional settings;
  return settings;
}

}  // namespace

const Regional& Regional::Current() { return Settings(); }

void Regional::Install(const Regional& settings) { Settings() = settings; }

}  // namespace platform
