#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/data_access.h"
#include "platform/screen/form.h"

/// Whole screens, by the form's own model.
namespace testing_support {

/// What stands in each field, date, choice and box, by the control's name: "Campo(3)", "Check1".
using Screen = std::map<std::string, std::string>;

std::string NameOf(const platform::Control& control);
Screen ScreenOf(const platform::Form& form);

/// The user fills out everything that is open, but for the first field, which holds the key: each control
/// gets a value that no other has, a text as long as its field takes. What is `given` wins, in closed
/// controls too.
void FillOut(platform::Form& form, const Screen& given = {});

/// What a screen puts into the columns of a row: the controls in their order, a number n for "Campo(n)", #n
/// for "DTPicker1(n)". A first one that the screen hasn't stands for itself.
std::vector<std::string> InColumns(const Screen& screen, const std::string& controls);

/// Compares the limit of each text field with the width of the column that holds its text, in the row that a
/// statement finds. The key and numbers take ten characters, but for those of `others`.
void ExpectLimits(const platform::Form& form, const Screen& typed, const zorCrmParvel::DataAccessRef& bd,
                  const std::string& statement, const std::map<std::string, int>& others = {});

/// The control of this name, which must be there.
template <typename T>
T& Find(const platform::Form& form, const std::string& name) {
  for (platform::Control* control : form.Controls())
    if (auto* found = dynamic_cast<T*>(control); found != nullptr && NameOf(*control) == name) return *found;
  throw platform::RuntimeError(platform::kNoSuchMember, form.Name + "." + name);
}

/// The controls of a form's layout, once for each place that they have in it.
std::multiset<const platform::Control*> Placed(const platform::Form& form);

}  // namespace testing_support
