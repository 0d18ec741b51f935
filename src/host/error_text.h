#pragma once

#include <string>

#include "platform/runtime_error.h"

namespace zorCrmParvel {

/// What a host shows of an error, in the user's language. Every host takes it from here, so that one error
/// reads the same in each.
struct ErrorText {
  std::string message;  // what happened and what to do; never empty
  std::string details;  // "Erro <number>: <words>" and where; empty when the message says all there is
};

/// The sentence for an error of any number. A description that is Portuguese already is the message,
/// unchanged. The words of a server or a file's engine are told as details alone.
ErrorText TextOf(const platform::RuntimeError& error);

/// The source of an error that the text of a field raises, from which `TextOf` names the field and the text.
std::string SourceInField(const std::string& caption, const std::string& text);

}  // namespace zorCrmParvel
