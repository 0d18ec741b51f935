#pragma once

#include <string>
#include <vector>

#include "host/data_access.h"
#include "platform/screen/form.h"

namespace entry {

/// What a code is for in its field.
enum class CodeUse {
  kOwn,       // the record's own
  kNeeded,    // another record's; the field isn't left without one
  kOptional,  // another record's, or none
  kPlain      // as optional, and F4 opens no ficha of it
};

/// The codes that a field of a ficha takes: a column of a table.
struct CodeField {
  const char* form;  // by its name
  int field;         // place in the ficha's fields
  const char* table;
  const char* column;
  CodeUse use = CodeUse::kOwn;
};

/// A code and, where the field is another record's, the name that it stands for.
struct KnownCode {
  std::string code;
  std::string name;
};

/// Null for a field that holds no code.
const CodeField* CodeFieldOf(const platform::Control* control);

/// Whether the field is where a vehicle gets its plate.
bool NamesVehicle(const CodeField& field);

/// Whether the codes of the field are plates of vehicles.
bool HoldsPlate(const CodeField& field);

/// All codes that there are.
std::vector<KnownCode> CodesOf(const zorCrmParvel::DataAccessRef& bd, const CodeField& field);

/// The code that somebody meant who wrote it in small letters, without its hyphens and blanks, or who wrote
/// the name that it stands for, or its beginning, for names are longer than fields: the one that is there.
/// The text as it was when there is none, or more than one, and when it is there just so.
std::string CodeMeant(const std::vector<KnownCode>& codes, const std::string& text);

/// A new plate as it is written: "12ab34" becomes "12-AB-34". Any other text as it was.
std::string PlateSpelled(const std::string& text);

/// The one code that is there now and wasn't before; empty when there is none, or more than one.
std::string CodeMade(const std::vector<KnownCode>& before, const std::vector<KnownCode>& now);

/// What to do about a code that its field did not let go: where codes are found and made. Empty for a field
/// without codes.
std::string AdviceOn(const CodeField& field, const std::string& text);

}  // namespace entry
