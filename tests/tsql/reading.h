#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <variant>

#include "platform/runtime_error.h"
#include "tsql/parser.h"

/// What the tests of the language share.
namespace tsql {

inline std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

/// Runs what should be refused; gives "number source: description", or "accepted".
template <typename Action>
std::string Refusal(Action action) {
  try {
    action();
  } catch (const platform::RuntimeError& error) {
    return std::to_string(error.number()) + " " + error.source() + ": " + error.description();
  }
  return "accepted";
}

/// Reads a statement that must be of the kind wanted.
template <typename Statement>
Statement Parsed(std::string_view text) {
  return std::get<Statement>(ParseStatement(text));
}

/// The node of an expression, which must be of the kind wanted.
template <typename Node>
const Node& As(const ExpressionPtr& expression) {
  return std::get<Node>(expression->node);
}

/// An expression with every grouping bracketed, to see what binds to what: "((a = 1) AND (b = 2))".
std::string Bracketed(const ExpressionPtr& expression);

}  // namespace tsql
