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

/// All codes that there are.
std::vector<std::string> CodesOf(const zorCrmParvel::DataAccessRef& bd, const CodeField& field);

/// The code that somebody meant who wrote it in small letters, or without its hyphens and blanks: the one
/// that is there. The text as it was when there is none, or more than one, and when it is there just so.
std::string CodeMeant(const std::vector<std::string>& codes, const std::string& text);

/// The one code that is there now and wasn't before; empty when there is none, or more than one.
std::string CodeMade(const std::vector<std::string>& before, const std::vector<std::string>& now);

}  // namespace entry
