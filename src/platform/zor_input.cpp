#include "platform/zor_input.h"

#include "platform/format.h"
#include "platform/text.h"

namespace platform {

std::string zor_input::DisplayText() const {
  return Numeric() && !formato.empty() ? FormatNumber(Text, formato) : Text;
}

bool zor_input::Fits(const std::string& text) const {
  return maxlength == 0 || Length(text) <= static_cast<std::size_t>(maxlength);
}

void zor_input::SelectAll() {
  SelStart = 0;
  SelLength = static_cast<int>(Length(Text));
}

}  // namespace platform
