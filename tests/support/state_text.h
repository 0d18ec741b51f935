#pragma once

#include <map>
#include <string>

#include "platform/screen/form.h"

namespace testing_support {

/// What every control shows: texts, dates, captions, rows; with its state where it isn't plainly there.
std::map<std::string, std::string> StateOf(const platform::Form& form);
/// What a control is beside what it shows: texts, lengths, formats.
std::string KindOf(const platform::Control& control);
/// Columns and styles of a grid, a line each.
std::string SetUpOf(const platform::SGGrid& grid);
/// The rows of a grid that hold something, with their styles.
std::string RowsOf(const platform::SGGrid& grid);

}  // namespace testing_support
