#pragma once

#include <vector>

#include "platform/screen/form.h"

namespace entry {

/// The button of a tab with events that opens the ficha of the one chosen.
struct EventButton {
  platform::PushButton* edit;
  int tab;
  int field;  // place of the field that holds the chosen event's key, out of sight
};

/// Those of a vehicle's ficha; none on any other.
std::vector<EventButton> EventButtonsOf(platform::Form& form);
/// Has the ficha open a new event: with no event chosen its button does that.
void OpenNewEvent(platform::Form& form, const EventButton& button);

}  // namespace entry
