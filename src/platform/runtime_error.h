#pragma once

#include <stdexcept>
#include <string>

namespace platform {

/// Numbers of the run-time errors that the module raises or passes on.
enum ErrorNumber : int {
  kInvalidCall = 5,
  kOverflow = 6,
  kSubscriptOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kFileNotFound = 53,
  kPathAccess = 75,
  kObjectNotSet = 91,
  kInvalidUseOfNull = 94,
  kNoSuchMember = 438,
  kKeyInUse = 457,
  kNoCurrentRecord = 3021,
  kNotUpdatable = 3251,
  kNoSuchField = 3265,
  kObjectClosed = 3704,
  kInvalidColumn = -2147217904,
  kInvalidObject = -2147217865,
  kConstraint = -2147217873,
  kMultipleStep = -2147217887,
  kStatementRefused = -2147217900,
  kEngineFailure = -2147467259,
};

/// The one exception of the module: a number that code can test, where it came from, and a text for the user.
class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(int number, std::string source, const std::string& description)
      : std::runtime_error(description), number_(number), source_(std::move(source)) {}

  /// Raises a numbered error with its standard text. Only for numbers whose text is fixed.
  explicit RuntimeError(ErrorNumber number, std::string source = {})
      : RuntimeError(number, std::move(source), StandardText(number)) {}

  int number() const { return number_; }
  const std::string& source() const { return source_; }
  std::string description() const { return what(); }

  /// The fixed text of an error number; empty when the text is the server's own.
  static const char* StandardText(int number);

 private:
  int number_;
  std::string source_;
};

}  // namespace platform
