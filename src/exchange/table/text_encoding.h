#pragma once

#include <array>
#include <istream>
#include <streambuf>
#include <string_view>

#include "exchange/table/table_reader.h"

namespace exchange {

/// How a file of text is written: by its byte order mark, else by the zeros that every second byte of UTF-16
/// is, else UTF-8 where the whole file is that, else Windows-1252. Reads it through and rewinds it. Throws
/// std::runtime_error where it isn't text at all.
TextEncoding DetectEncoding(std::istream& file);

/// Gives a file of UTF-16 as UTF-8. Can be rewound, and sought nowhere else. A lone surrogate becomes U+FFFD;
/// a file that ends within a character throws std::runtime_error.
class Utf16Buffer : public std::streambuf {
 public:
  Utf16Buffer(std::istream& file, bool bigEndian) : file_(file), bigEndian_(bigEndian) {}

 protected:
  int_type underflow() override;
  pos_type seekpos(pos_type position, std::ios_base::openmode) override;

 private:
  /// The next unit of 16 bits; -1 at the end.
  int Unit();

  std::istream& file_;
  bool bigEndian_;
  std::array<char, 4096> utf8_{};
};

}  // namespace exchange
