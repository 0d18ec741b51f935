#pragma once

#include <string>
#include <vector>

#include "host/data_access.h"
#include "platform/screen/form.h"

namespace entry {

/// The codes that a field of a ficha takes: a column of a table.
struct CodeField {
  const char* form;  // by its name
  int field;         // place in the ficha's fields
  const char* table;
  const char* column;
};

/// Null for a field that holds no code.
const CodeField* CodeFieldOf(const platform::Control* control);

/// Whether the field is where a vehicle gets its plate.
bool NamesVehicle(const CodeField& field);

/// All codes that there are.
std::vector<std::string> CodesOf(const zorCrmParvel::DataAccessRef& bd, const CodeField& field);

/// The code that somebody meant who wrote it in small letters, or without its hyphens and blanks: the one
/// that is there. The text as it was when there is none, or more than one, and when it is there just so.
std::string CodeMeant(const std::vector<std::string>& codes, const std::string& text);

/// A new plate as it is written: "12ab34" becomes "12-AB-34". Any other text as it was.
std::string PlateSpelled(const std::string& text);

/// The one code that is there now and wasn't before; empty when there is none, or more than one.
std::string CodeMade(const std::vector<std::string>& before, const std::vector<std::string>& now);

}  // namespace entry
