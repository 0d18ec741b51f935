#include "platform/screen/form.h"

#include <algorithm>

#include "platform/host.h"

namespace platform {

/// Brackets everything that a user's act sets off. When the outermost one ends well, the sent keys are
/// delivered; when an error leaves it, they are dropped.
class Form::Handling {
 public:
  explicit Handling(Form& form) : form_(form) {
    if (++form_.handling_ == 1) form_.notice_.clear();
  }
  Handling(const Handling&) = delete;
  Handling& operator=(const Handling&) = delete;
  ~Handling() {
    if (--form_.handling_ == 0) form_.keys_.clear();
  }

 private:
  Form& form_;
};

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  Form_Load();
  if (active_ == nullptr) active_ = Neighbour(nullptr, false);
}

void Form::ShowModal(Form* owner) {
  Load();
  closed_ = false;
  Settle();
  Host::Current().ShowModal(*this, owner);
}

void Form::Unload() {
  closed_ = true;
  keys_.clear();
}

void Form::SendKeys(const std::string& keys) {
  if (keys != "{TAB}" && keys != "+{TAB}") throw RuntimeError(kInvalidCall, keys);
  keys_.push_back(keys);
}

void Form::DeliverKeys() {
  if (handling_ != 1) return;
  for (Settle(); !keys_.empty() && !closed_; Settle()) {
    const bool backwards = keys_.front()[0] == '+';
    keys_.pop_front();
    if (backwards || PressTab()) MoveFocus(backwards);
  }
}

/// A control that was disabled or hidden under the focus gives it to the next one; what can't be reached
/// can't be put right either, so it isn't checked.
void Form::Settle() {
  if (closed_ || active_ == nullptr || active_->CanFocus()) return;
  if (Control* next = Neighbour(active_, false)) Focus(next);
}

/// Tells the control of the key; false when it swallowed it. A step back that a handler sent isn't told: it
/// comes from Escape, which leaves the field unchecked.
bool Form::PressTab() {
  int code = kKeyTab;
  if (active_ != nullptr && active_->KeyPress) active_->KeyPress(code);
  return code != kKeyNone && !closed_;
}

Control* Form::Neighbour(const Control* from, bool backwards) const {
  const std::size_t count = controls_.size();
  const auto found = std::find(controls_.begin(), controls_.end(), from);
  std::size_t at = found != controls_.end() ? static_cast<std::size_t>(found - controls_.begin()) : count - 1;
  if (found == controls_.end() && backwards) at = 0;
  for (std::size_t step = 0; step < count; ++step) {
    at = (at + (backwards ? count - 1 : 1)) % count;
    if (controls_[at]->TabStop && controls_[at]->CanFocus()) return controls_[at];
  }
  return nullptr;
}

void Form::TabBefore(Control& control, Control& next) {
  controls_.erase(std::find(controls_.begin(), controls_.end(), &control));
  controls_.insert(std::find(controls_.begin(), controls_.end(), &next), &control);
}

void Form::Focus(Control* control) {
  if (control == active_) return;
  active_ = control;
  if (control->GotFocus) control->GotFocus();
}

bool Form::Leave(Control* to) {
  if (active_ == nullptr || active_ == to || !to->CausesValidation) return true;
  if (Objects(active_)) return false;
  if (!active_->Validate) return true;
  bool cancel = false;
  active_->Validate(cancel);
  return !cancel;
}

/// Tells why a field can't be left, if so.
bool Form::Objects(const Control* control) {
  const auto* field = dynamic_cast<const zor_input*>(control);
  std::string objection = field != nullptr ? field->Objection() : std::string();
  if (objection.empty()) return false;
  Notify(std::move(objection));
  return true;
}

void Form::MoveFocus(bool backwards) {
  Control* next = Neighbour(active_, backwards);
  if (next != nullptr && Leave(next) && !closed_) Focus(next);
}

bool Form::UserGoesTo(Control& control) {
  Handling handling(*this);
  if (!control.CanFocus()) return false;
  if (&control == active_) return true;
  if (!Leave(&control) || closed_) return false;
  Focus(&control);
  DeliverKeys();
  return active_ == &control;
}

void Form::UserPresses(PushButton& button) {
  Handling handling(*this);
  if (!button.CanFocus() || !Leave(&button) || closed_) return;
  Focus(&button);
  if (button.Click) button.Click();
  DeliverKeys();
}

void Form::UserKey(int key, bool shift) {
  Handling handling(*this);
  Control* control = active_;
  if (control == nullptr) return;
  if (key == kKeyTab) {
    if (PressTab()) MoveFocus(shift);
    return DeliverKeys();
  }
  const std::size_t sent = keys_.size();
  int code = key;
  if (control->KeyPress) control->KeyPress(code);
  if (code != kKeyNone && keys_.size() == sent && !closed_) UnhandledKey(*control, code);
  DeliverKeys();
}

void Form::UnhandledKey(Control& control, int key) {
  if (const auto* field = dynamic_cast<zor_input*>(&control)) Request(*field, key);
  auto* grid = dynamic_cast<SGGrid*>(&control);
  if (key == kKeyEnter) {
    const auto* button = dynamic_cast<PushButton*>(&control);
    if (button != nullptr && button->Click)
      button->Click();
    else if (grid != nullptr && grid->DoubleClick && grid->Row() >= 0)
      grid->DoubleClick(grid->Row());
    else if (button == nullptr)
      SendKeys("{TAB}");
  } else if (key == kKeyEscape) {
    SendKeys("+{TAB}");
  } else if (const MenuItem* command = grid != nullptr ? grid->CommandOf(key) : nullptr) {
    grid->PopUpCommand(command->id);
  }
}

/// A request may take the focus elsewhere, so it asks what leaving the field asks.
void Form::Request(const zor_input& field, int key) {
  const std::function<void()>* request = key == kKeyF3   ? &field.PedidoLista
                                         : key == kKeyF4 ? &field.PedidoFicha
                                         : key == kKeyF7 ? &field.PedidoMapa
                                                         : nullptr;
  if (request != nullptr && *request && !Objects(&field)) (*request)();
}

bool Form::UserTypes(zor_input& field, const std::string& text) {
  Handling handling(*this);
  if (!field.Enabled || text == field.Text) return true;
  if (!field.Fits(text)) return false;
  int code = kKeyCharacter;
  if (field.KeyPress) field.KeyPress(code);
  if (code != kKeyNone) {
    field.Text = text;
    if (field.Change) field.Change();
  }
  DeliverKeys();
  return true;
}

void Form::UserToggles(CheckBox& box) {
  if (!UserGoesTo(box)) return;
  Handling handling(*this);
  box.Value = box.Value == 1 ? 0 : 1;
  if (box.Click) box.Click();
  DeliverKeys();
}

void Form::UserChooses(ComboBox& box, int index) {
  if (!UserGoesTo(box)) return;
  Handling handling(*this);
  if (index < 0 || index >= box.ListCount() || index == box.ListIndex) return;
  box.ListIndex = index;
  if (box.Change) box.Change();
  if (box.Click) box.Click();
  DeliverKeys();
}

void Form::UserPicksDate(DTPicker& picker, const Variant& value) {
  if (!UserGoesTo(picker)) return;
  Handling handling(*this);
  if (value.IsNull() && !picker.Optional) return;
  if (value == picker.Value) return;
  picker.Value = value;
  if (picker.Change) picker.Change();
  DeliverKeys();
}

void Form::UserClicksDate(MonthView& view, Date date) {
  if (!UserGoesTo(view)) return;
  Handling handling(*this);
  view.Value = date;
  if (view.DateClick) view.DateClick(date);
  DeliverKeys();
}

void Form::UserMovesToDate(MonthView& view, Date date) {
  if (UserGoesTo(view)) view.Value = date;
}

void Form::UserSelectsTab(TabControl& tabs, int index) {
  if (index < 0 || index >= static_cast<int>(tabs.Captions.size()) || index == tabs.Tab) return;
  if (!UserGoesTo(tabs)) return;
  Handling handling(*this);
  const int previous = tabs.Tab;
  tabs.Tab = index;
  if (tabs.Click) tabs.Click(previous);
  DeliverKeys();
}

bool Form::UserSelectsRow(SGGrid& grid, long row) {
  if (!UserGoesTo(grid)) return false;
  Handling handling(*this);
  grid.SetRow(row);
  if (grid.Click) grid.Click(row);
  DeliverKeys();
  return grid.Row() == row;
}

bool Form::UserEditsCell(SGGrid& grid, long row, const std::string& text) {
  if (grid.EditableColumn.empty() || !UserSelectsRow(grid, row)) return false;
  Handling handling(*this);
  bool cancel = false;
  if (grid.ValidateEdit) grid.ValidateEdit(row, text, cancel);
  if (!cancel) grid.SetCell(row, grid.EditableColumn, text);
  DeliverKeys();
  return !cancel;
}

void Form::UserCommands(SGGrid& grid, long row, long command) {
  if (!UserSelectsRow(grid, row)) return;
  Handling handling(*this);
  if (grid.PopUpCommand) grid.PopUpCommand(command);
  DeliverKeys();
}

void Form::UserDoubleClicks(SGGrid& grid, long row) {
  if (!UserSelectsRow(grid, row)) return;
  Handling handling(*this);
  if (grid.DoubleClick) grid.DoubleClick(row);
  DeliverKeys();
}

void Form::UserSelectsRow(MSFlexGrid& grid, int row) {
  if (row < 0 || row >= grid.Rows()) throw RuntimeError(kSubscriptOutOfRange);
  if (!UserGoesTo(grid)) return;
  Handling handling(*this);
  grid.Row = row;
  if (grid.Click) grid.Click();
  DeliverKeys();
}

}  // namespace platform
