#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/variant.h"

namespace platform {

class Form;
class Frame;

/// Keys that reach a control's handler. A handler that sets the key to 0 swallows it. Hosts map their
/// toolkit's codes to these.
enum Key : int {
  kKeyNone = 0,
  kKeyTab = 9,
  kKeyEnter = 13,
  kKeyEscape = 27,
  kKeyDelete = 46,
  kKeyF2 = 113,
  kKeyF3 = 114,
  kKeyF4 = 115,
  kKeyF7 = 118,
  kKeyCharacter = 256
};

/// What all controls of a form share: a model that a host draws, and changes through the form's `User…`
/// members alone. A control is a member of its form; it registers itself there, and the order of registration
/// is the tab order. Its handlers run inside those members.
class Control {
 public:
  Control(Form& form, std::string name, int index = -1);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  Form& form() const { return form_; }
  const std::string& Name() const { return name_; }
  int Index() const { return index_; }  // place in a control array, -1 outside one

  std::string ToolTipText;
  bool Enabled = true;
  bool Visible = true;
  bool TabStop = true;           // false: Tab and Enter pass by, a click doesn't
  bool CausesValidation = true;  // false: going here doesn't validate the control that is left
  Frame* Container = nullptr;    // hidden with it

  /// Moves the focus here at once, without validating the control that is left. Does nothing where the focus
  /// can't come.
  void SetFocus();
  /// True when the focus can come here.
  bool CanFocus() const;
  virtual bool TakesFocus() const { return true; }

  std::function<void(bool& Cancel)> Validate;  // the user leaves the control
  std::function<void(int& KeyCode)> KeyPress;  // any key, kKeyCharacter for text
  std::function<void()> GotFocus;

 private:
  Form& form_;
  std::string name_;
  int index_;
};

/// A control array: members found by index, which may have gaps.
template <typename T>
class ControlArray {
 public:
  ControlArray() = default;
  ControlArray(Form& form, const std::string& name, int count) {
    for (int i = 0; i < count; ++i) Add(form, name, i);
  }

  T& Add(Form& form, const std::string& name, int index) {
    if (index < 0) throw RuntimeError(kSubscriptOutOfRange);
    if (items_.size() <= static_cast<std::size_t>(index)) items_.resize(static_cast<std::size_t>(index) + 1);
    auto& place = items_[static_cast<std::size_t>(index)];
    place = std::make_unique<T>(form, name, index);
    return *place;
  }
  /// Error 9 when the array has no such member.
  T& operator[](int index) const {
    if (!Has(index)) throw RuntimeError(kSubscriptOutOfRange);
    return *items_[static_cast<std::size_t>(index)];
  }
  bool Has(int index) const {
    return index >= 0 && static_cast<std::size_t>(index) < items_.size() &&
           items_[static_cast<std::size_t>(index)];
  }
  int UBound() const { return static_cast<int>(items_.size()) - 1; }
  template <typename F>
  void Each(F&& visit) const {
    for (const auto& item : items_)
      if (item) visit(*item);
  }

 private:
  std::vector<std::unique_ptr<T>> items_;
};

/// A text: a caption beside a field, or a description behind it.
class Label : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return false; }
  std::string Caption;
};

/// A group of controls that is shown and hidden as one.
class Frame : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return false; }
  std::string Caption;
};

/// Button; "&" in the caption marks the mnemonic.
class PushButton : public Control {
 public:
  using Control::Control;
  std::string Caption;
  std::function<void()> Click;
};
using zorBotao = PushButton;

/// A box to tick. `Click` runs after the user has changed it.
class CheckBox : public Control {
 public:
  using Control::Control;
  std::string Caption;
  int Value = 0;  // 1 is ticked
  std::function<void()> Click;
};

/// A choice among fixed texts.
class ComboBox : public Control {
 public:
  using Control::Control;
  std::vector<std::string> List;
  int ListIndex = -1;  // -1 while nothing is chosen
  int ListCount() const { return static_cast<int>(List.size()); }
  std::function<void()> Click;  // the user chose an entry
  std::function<void()> Change;
};

/// A date field. Unchecked, its value is null.
class DTPicker : public Control {
 public:
  using Control::Control;
  Variant Value = Date();                   // a `Date` or null
  std::string CustomFormat = "dd-mm-yyyy";  // mask, see FormatDate
  bool Optional = false;                    // has the small box that unchecks it
  std::function<void()> Change;
};

/// A month of days to choose one from.
class MonthView : public Control {
 public:
  using Control::Control;
  Date Value;  // the day that the keyboard stands on
  std::function<void(Date clicked)> DateClick;
};

/// Pages under captions; `Click` runs after the page has changed.
class TabControl : public Control {
 public:
  using Control::Control;
  std::vector<std::string> Captions;
  int Tab = 0;  // the page in front, from 0
  std::function<void(int previous)> Click;
};

/// Shows one picture file. What can't be shown as a picture leaves it empty.
class ShowImg : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return false; }
  std::string FileName;                    // the file to show with the next Load
  std::optional<std::uint32_t> BackColor;  // 0xRRGGBB, behind the picture; without one the host's own
  /// Puts `FileName` on display. A host reads the file, and shows nothing where it can't.
  void Load() {
    shown_ = FileName;
    ++revision_;
  }
  void Clear() {
    shown_.clear();
    ++revision_;
  }
  /// The file on display, empty when cleared.
  const std::string& Shown() const { return shown_; }
  /// Counts the changes, for whoever draws it.
  int Revision() const { return revision_; }

 private:
  std::string shown_;
  int revision_ = 0;
};

}  // namespace platform
