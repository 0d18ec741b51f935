#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/recordset.h"

namespace exchange {

/// A sum of bytes, 64 bits of FNV-1a: it tells a change, not a forgery.
class Checksum {
 public:
  void Add(std::string_view bytes) {
    for (const char c : bytes) sum_ = (sum_ ^ static_cast<unsigned char>(c)) * 1099511628211U;
  }
  /// 16 hexadecimal digits.
  std::string ToText() const;

 private:
  std::uint64_t sum_ = 14695981039346656037U;
};

/// The sum of a file's bytes. Throws std::runtime_error when it can't be read.
std::string ChecksumOfFile(const std::string& file);
/// The mark of the current row's values, by which a later change shows. What is computed from other rows (a
/// vehicle's figures) and the key that the database gave aren't among them.
std::string MarkOf(platform::Recordset& rows, std::string_view numberedKey);
/// The mark of a new row: what was assigned to each field, null where nothing was.
std::string MarkOf(const std::vector<platform::FieldInfo>& fields,
                   const std::vector<std::optional<platform::Variant>>& values, std::string_view numberedKey);

}  // namespace exchange
