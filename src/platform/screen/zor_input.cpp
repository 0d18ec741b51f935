#include "platform/screen/zor_input.h"

#include <algorithm>
#include <string_view>

#include "platform/format.h"
#include "platform/regional.h"
#include "platform/text.h"

namespace platform {
namespace {

bool PartsInThrees(std::string_view number) {
  const Regional& regional = Regional::Current();
  const auto decimals = number.find(regional.decimal);
  if (decimals != std::string_view::npos &&
      number.find(regional.grouping, decimals) != std::string_view::npos)
    return false;
  number = number.substr(0, decimals);
  number.remove_prefix(std::min(number.find_first_not_of("-+"), number.size()));
  const auto first = number.find(regional.grouping);
  if (first == std::string_view::npos) return true;
  if (first == 0 || first > 3 || number[0] == '0') return false;
  for (number.remove_prefix(first); !number.empty(); number.remove_prefix(4))
    if (number[0] != regional.grouping || number.size() < 4 ||
        number.substr(1, 3).find(regional.grouping) != std::string_view::npos)
      return false;
  return true;
}

}  // namespace

std::string zor_input::DisplayText() const {
  return Numeric() && !formato.empty() ? FormatNumber(Text, formato) : Text;
}

std::string zor_input::Objection() const {
  if (!Numeric() || PartsInThrees(Trim(Text))) return {};
  const Regional& regional = Regional::Current();
  return "«" + Text + "» não é um número: as casas decimais separam-se com «" + regional.decimal + "», e «" +
         regional.grouping + "» só separa milhares.";
}

bool zor_input::Fits(const std::string& text) const {
  return maxlength == 0 || Length(text) <= static_cast<std::size_t>(maxlength);
}

void zor_input::SelectAll() {
  SelStart = 0;
  SelLength = static_cast<int>(Length(Text));
}

}  // namespace platform
