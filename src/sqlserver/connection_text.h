#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sqlserver {

/// An ODBC connection string without its password: "Driver=FreeTDS;Server=…;Database=…;UID=…". A text with no
/// "=" in it is the name of a DSN.
class ConnectionText {
 public:
  /// Error -2147467259 when the text can't be read, and when it holds a password: a command line and a
  /// settings file are seen by others.
  explicit ConnectionText(std::string_view text);

  /// The value of a key, case ignored; empty when there is none.
  std::string Get(std::string_view key) const;
  /// Puts a value in the place of the key's, or at the end; an empty one removes it.
  void Set(std::string_view key, std::string value);
  /// The text for people: "frota em servidor". Never holds more than names.
  std::string Place() const;
  /// As it is kept and shown.
  std::string ToText() const;
  /// With the password put in, for the driver alone.
  std::string WithPassword(std::string_view password) const;
  /// True for a password that can only be written with a doubled brace, which not every driver reads.
  static bool DoublesBraces(std::string_view password);
  /// True when a user is named, who needs a password.
  bool NamesUser() const { return !Get("UID").empty(); }

 private:
  std::vector<std::pair<std::string, std::string>> pairs_;
};

}  // namespace sqlserver
