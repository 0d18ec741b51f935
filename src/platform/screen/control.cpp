#include "platform/screen/control.h"

#include "platform/screen/form.h"

namespace platform {

Control::Control(Form& form, std::string name, int index)
    : form_(form), name_(std::move(name)), index_(index) {
  form.controls_.push_back(this);
}

bool Control::CanFocus() const {
  return TakesFocus() && Enabled && Visible && (Container == nullptr || Container->Visible);
}

void Control::SetFocus() {
  if (CanFocus()) form_.Focus(this);
}

}  // namespace platform
