#include "desktop/ficha/ficha_contents.h"

#include <algorithm>

namespace desktop {
bool HoldsValue(const platform::Control& control) {
  return dynamic_cast<const platform::zor_input*>(&control) != nullptr ||
         dynamic_cast<const platform::DTPicker*>(&control) != nullptr ||
         dynamic_cast<const platform::ComboBox*>(&control) != nullptr ||
         dynamic_cast<const platform::CheckBox*>(&control) != nullptr;
}

std::string ValueOf(const platform::Control& control) {
  if (const auto* field = dynamic_cast<const platform::zor_input*>(&control)) return field->Text;
  if (const auto* date = dynamic_cast<const platform::DTPicker*>(&control))
    return date->Value.IsNull() ? std::string() : date->Value.ToText();
  if (const auto* choice = dynamic_cast<const platform::ComboBox*>(&control))
    return std::to_string(choice->ListIndex);
  const auto* box = dynamic_cast<const platform::CheckBox*>(&control);
  return box != nullptr ? std::to_string(box->Value) : std::string();
}

/// Where nobody can type there is nothing to confirm: the details of the event chosen on a tab come and go.
std::vector<std::string> FichaContents::Read() const {
  std::vector<std::string> values;
  for (const platform::Control* control : form_.Controls())
    if (HoldsValue(*control)) values.push_back(control->Enabled ? ValueOf(*control) : std::string());
  return values;
}

bool FichaContents::IsRecordButton(const platform::Control* control) const {
  const platform::Layout& layout = form_.layout;
  for (const auto* buttons : {&layout.navigation, &layout.tools, &layout.destructive, &layout.actions})
    if (std::find(buttons->begin(), buttons->end(), control) != buttons->end()) return true;
  return false;
}

bool FichaContents::IsKeyField(const platform::Control* control) const {
  for (const platform::Control* first : form_.Controls())
    if (HoldsValue(*first)) return first == control;
  return false;
}

void FichaContents::Before() {
  before_ = Read();
  active_ = form_.ActiveControl();
}

bool FichaContents::After(const platform::Control* pressed) {
  const std::vector<std::string> after = Read();
  if (after == before_) return false;
  // From the key field other fields change when a record is shown.
  const bool shown =
      IsKeyField(active_) && !std::equal(after.begin() + 1, after.end(), before_.begin() + 1, before_.end());
  const bool settled = shown || IsRecordButton(pressed) || IsRecordButton(active_);
  if (settled) settled_ = after;
  return settled;
}

}  // namespace desktop
