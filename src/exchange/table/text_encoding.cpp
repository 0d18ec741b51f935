#include "exchange/table/text_encoding.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "exchange/utf8.h"
#include "platform/text.h"

namespace exchange {
namespace {

constexpr std::size_t kBlock = 65536;
constexpr char32_t kReplacement = 0xFFFD;

/// Zeros at even and at odd places among the first bytes.
struct Zeros {
  std::size_t even = 0;
  std::size_t odd = 0;
};

Zeros ZerosOf(std::string_view head) {
  Zeros zeros;
  for (std::size_t i = 0; i < head.size(); ++i)
    if (head[i] == '\0') ++(i % 2 == 0 ? zeros.even : zeros.odd);
  return zeros;
}

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 &&
         std::string_view("\t\n\v\f\r\x1A").find(c) == std::string_view::npos;
}

/// Looks at text of one byte a unit, block by block, where a character may lie across two.
class ByteText {
 public:
  void Add(std::string_view block) {
    control_ = control_ || std::any_of(block.begin(), block.end(), IsControl);
    if (!utf8_) return;
    pending_.append(block);
    std::size_t whole = pending_.size();
    for (std::size_t back = 1; back <= 3 && back <= pending_.size(); ++back) {
      const auto byte = static_cast<unsigned char>(pending_[pending_.size() - back]);
      if (byte < 0x80) break;
      if (byte < 0xC0) continue;
      whole = pending_.size() - back;  // a character begins here, and may go on in the next block
      break;
    }
    utf8_ = platform::IsUtf8(std::string_view(pending_).substr(0, whole));
    pending_.erase(0, whole);
  }
  bool utf8() const { return utf8_ && platform::IsUtf8(pending_); }
  bool control() const { return control_; }

 private:
  std::string pending_;
  bool utf8_ = true;
  bool control_ = false;
};

TextEncoding EncodingOf(std::istream& file) {
  std::string block(kBlock, '\0');
  ByteText text;
  for (bool first = true; file; first = false) {
    file.read(block.data(), static_cast<std::streamsize>(block.size()));
    const std::string_view read = std::string_view(block).substr(0, static_cast<std::size_t>(file.gcount()));
    if (first) {
      if (read.starts_with("\xFF\xFE")) return TextEncoding::kUtf16LittleEndian;
      if (read.starts_with("\xFE\xFF")) return TextEncoding::kUtf16BigEndian;
      const Zeros zeros = ZerosOf(read);
      // In UTF-16 half of the bytes of western text are zero.
      if (zeros.even == 0 && zeros.odd > read.size() / 4) return TextEncoding::kUtf16LittleEndian;
      if (zeros.odd == 0 && zeros.even > read.size() / 4) return TextEncoding::kUtf16BigEndian;
    }
    text.Add(read);
    if (text.control())
      throw std::runtime_error(
          "O ficheiro não é uma tabela: não é texto, nem uma folha de cálculo que se conheça. Guarde-o como "
          "XLSX, ODS "
          "ou CSV e tente de novo.");
  }
  return text.utf8() ? TextEncoding::kUtf8 : TextEncoding::kWindows1252;
}

void Rewind(std::istream& file) {
  file.clear();
  file.seekg(0);
}

}  // namespace

TextEncoding DetectEncoding(std::istream& file) {
  Rewind(file);
  const TextEncoding encoding = EncodingOf(file);
  Rewind(file);
  return encoding;
}

Utf16Buffer::int_type Utf16Buffer::underflow() {
  std::string text;
  while (text.size() + 8 < utf8_.size()) {
    const int unit = Unit();
    if (unit < 0) break;
    auto c = static_cast<char32_t>(unit);
    if (unit >= 0xD800 && unit < 0xDC00) {
      const int low = Unit();
      const bool pair = low >= 0xDC00 && low < 0xE000;
      c = pair ? 0x10000 + ((c - 0xD800) << 10) + (static_cast<char32_t>(low) - 0xDC00) : kReplacement;
    } else if (unit >= 0xDC00 && unit < 0xE000) {
      c = kReplacement;
    }
    AppendUtf8(text, c);
  }
  if (text.empty()) return traits_type::eof();
  std::copy(text.begin(), text.end(), utf8_.begin());
  setg(utf8_.data(), utf8_.data(), utf8_.data() + text.size());
  return traits_type::to_int_type(utf8_[0]);
}

int Utf16Buffer::Unit() {
  std::streambuf& bytes = *file_.rdbuf();
  const int first = bytes.sbumpc();
  if (first == traits_type::eof()) return -1;
  const int second = bytes.sbumpc();
  if (second == traits_type::eof())
    throw std::runtime_error(
        "O ficheiro está incompleto: acaba a meio de um carácter. Peça-o de novo a quem o enviou.");
  return bigEndian_ ? (first << 8) | second : (second << 8) | first;
}

Utf16Buffer::pos_type Utf16Buffer::seekpos(pos_type position, std::ios_base::openmode) {
  if (position != pos_type(0)) return pos_type(off_type(-1));
  Rewind(file_);
  setg(nullptr, nullptr, nullptr);
  return position;
}

}  // namespace exchange
