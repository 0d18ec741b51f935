#pragma once

#include <string>

#include "platform/screen/form.h"

namespace desktop {

/// The title of a ficha's window: its caption, and the record that it shows, told by the first two things
/// that it holds ("Gastos: 10-GJ-10, 24-11-2026"). The caption alone while there is no record.
std::string TitleOf(const platform::Form& form);

/// One line on the control that has the keyboard: what it wants, and its keys ("Motorista · F3 lista, F4
/// ficha"). Empty when there is nothing to say.
std::string HintFor(const platform::Control* control);

}  // namespace desktop
