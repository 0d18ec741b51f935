#pragma once

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct UCollator;

namespace embedded {

/// The server's order of texts: case and trailing blanks are ignored, accents count.
class ServerCollation {
 public:
  /// The one of the process.
  static const ServerCollation& Instance();

  /// Negative, zero or positive, for any UTF-8 texts.
  int Compare(std::string_view a, std::string_view b) const;
  /// Names the rules behind the order: indexes built under other rules have to be built anew.
  const std::string& version() const { return version_; }

 private:
  struct Closer {
    void operator()(UCollator* collator) const;
  };

  ServerCollation();
  void RankAscii();
  int CompareByRules(std::string_view a, std::string_view b) const;

  std::unique_ptr<UCollator, Closer> collator_;
  std::string version_;
  // Places of the ASCII characters in the order, equal for the two cases of a letter.
  std::array<std::uint8_t, 256> rank_{};
};

/// Makes the order known to a connection as the collation SERVER.
void RegisterCollation(sqlite3* connection);

}  // namespace embedded
