#pragma once

#include <string>
#include <vector>

#include "platform/screen/form.h"

namespace desktop {

/// True for a control in which the user leaves something: a field, a date, a choice, a box to tick.
bool HoldsValue(const platform::Control& control);
/// What such a control holds, as a text.
std::string ValueOf(const platform::Control& control);

/// Tells whether the user has changed what a ficha shows and not confirmed it. What the ficha itself puts
/// into its fields (another record, the emptied fields after a save) is no change of the user's.
class FichaContents {
 public:
  explicit FichaContents(const platform::Form& form) : form_(form) {}

  /// What is shown now is no change.
  void Settle() { settled_ = Read(); }
  /// Before and after an act of the user; `pressed` is the button that the act pressed, null for none. True
  /// when the ficha has put another record into its fields, or emptied them.
  void Before();
  bool After(const platform::Control* pressed);
  bool Changed() const { return Read() != settled_; }

 private:
  std::vector<std::string> Read() const;
  /// True for one of the buttons at the bottom, which show, save or empty the record as a whole.
  bool IsRecordButton(const platform::Control* control) const;
  bool IsKeyField(const platform::Control* control) const;

  const platform::Form& form_;
  std::vector<std::string> settled_;
  std::vector<std::string> before_;
  const platform::Control* active_ = nullptr;  // had the keyboard before the act
};

}  // namespace desktop
