#pragma once

#include <stdexcept>
#include <string>

namespace platform {

/// Numbers of the run-time errors that the module raises or passes on. The negative ones are those of the
/// server and of what sends to it: their text is the engine's own.
enum ErrorNumber : int {
  kInvalidCall = 5,  // an argument that the callee has no use for
  kOverflow = 6,
  kSubscriptOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kFileNotFound = 53,
  kPathAccess = 75,  // a file that can't be written, or is in use
  kObjectNotSet = 91,
  kInvalidUseOfNull = 94,
  kNoSuchMember = 438,  // of a ficha that is called by name
  kKeyInUse = 457,      // a second style of one name
  kNoCurrentRecord = 3021,
  kNotUpdatable = 3251,
  kNoSuchField = 3265,
  kObjectClosed = 3704,
  kInvalidColumn = -2147217904,
  kInvalidObject = -2147217865,     // a table that there isn't
  kConstraint = -2147217873,        // a key or a rule of the table refuses the row
  kMultipleStep = -2147217887,      // a value that its column can't take
  kStatementRefused = -2147217900,  // a statement that can't be read or run
  kEngineFailure = -2147467259,     // connection, file or disk
};

/// The one exception of the module: a number that code can test, where it came from (a list and its verb, a
/// field; often empty), and a text. What a user should read of it is `TextOf` in host/error_text.h.
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
