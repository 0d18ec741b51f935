#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <variant>

#include "support/errors.h"
#include "support/files.h"
#include "tsql/parser.h"

/// What the tests of the language share.
namespace tsql {

using testing_support::Contents;

/// Runs what should be refused; gives "number source: description", or "accepted".
inline std::string Refusal(const std::function<void()>& act) {
  const platform::RuntimeError error = testing_support::FailureOf(act);
  if (error.number() == 0) return "accepted";
  return std::to_string(error.number()) + " " + error.source() + ": " + error.description();
}

/// Reads a statement that must be of the kind wanted.
template <typename Statement>
Statement Parsed(std::string_view text) {
  return std::get<Statement>(ParseStatement(text));
}

/// An expression with every grouping bracketed, to see what binds to what: "((a = 1) AND (b = 2))".
std::string Bracketed(const ExpressionPtr& expression);

}  // namespace tsql
