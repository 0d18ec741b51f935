#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "embedded/compiler/shape.h"
#include "embedded/compiler/value_kind.h"
#include "embedded/storage/sqlite.h"

namespace embedded {

/// One parameter of a compiled statement: a literal read as some kind, or the moment of the run.
struct Parameter {
  std::optional<std::size_t> literal;  // ordinal in the statement; none: the clock
  Kind kind = Kind::kText;
  bool inTenThousandths = false;  // a double to be compared with money
  bool fixedValue = false;        // the compiled statement holds for this value of the literal alone
  bool negative = false;          // a number behind a minus
};

/// The parameters of a statement while it is compiled, in the order of their numbers.
class Parameters {
 public:
  /// Adds one and returns its index.
  std::size_t Add(Parameter parameter);
  Parameter& operator[](std::size_t index) { return all_[index]; }
  const std::vector<Parameter>& all() const { return all_; }
  /// How a parameter is written in SQL.
  static std::string Name(std::size_t index) { return "?" + std::to_string(index + 1); }

 private:
  std::vector<Parameter> all_;
};

/// What a run puts into its parameters. The statement's text must stay where it is until the run ends.
struct Arguments {
  std::string_view statement;
  const std::vector<LiteralSpan>* literals = nullptr;
  std::int64_t now = 0;  // seconds since 30-12-1899
};

/// Binds all parameters, in the order in which they stand in the SQL; a literal that can't be read as its
/// kind raises error -2147217900.
void Bind(const SqliteStatement& target, const std::vector<Parameter>& parameters,
          const Arguments& arguments);

}  // namespace embedded
