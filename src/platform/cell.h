#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/variant.h"

namespace platform {

/// What a column holds: a truth value, a 16-bit and a 32-bit integer, a double, money, a moment, text
/// (UTF-8), bytes.
enum class FieldType : std::uint16_t { kBool, kInteger, kLong, kDouble, kCurrency, kDate, kText, kBytes };

/// One cell of a recordset, seen where it is stored: no copy, valid until the recordset closes.
class Cell {
 public:
  Cell() = default;  // null
  static Cell Number(FieldType type, std::int64_t value) {
    Cell c(type);
    c.integer_ = value;
    return c;
  }
  static Cell Real(double value) {
    Cell c(FieldType::kDouble);
    c.real_ = value;
    return c;
  }
  /// Text or bytes; the memory is the owner's.
  static Cell Block(FieldType type, std::string_view data) {
    Cell c(type);
    c.data_ = data.data();
    c.length_ = static_cast<std::uint32_t>(data.size());
    return c;
  }

  bool IsNull() const { return null_ != 0; }
  /// Of a null it says nothing. The three readers below are each for the types named alone: nothing checks.
  FieldType type() const { return type_; }
  /// The stored number: a count of ten-thousandths for money, of seconds for a date, 0 or 1 for a truth
  /// value.
  std::int64_t integer() const { return integer_; }
  /// Of kDouble alone.
  double real() const { return real_; }
  /// Of text and bytes: the store's own memory.
  std::string_view block() const { return {data_, length_}; }

  /// A copy with a life of its own.
  Variant ToVariant() const;
  /// As `Variant::ToText`, except that null is an empty text.
  std::string ToText() const;

 private:
  explicit Cell(FieldType type) : null_(0), type_(type) {}

  union {
    std::int64_t integer_ = 0;
    double real_;
    const char* data_;
  };
  std::uint32_t length_ = 0;
  std::uint16_t null_ = 1;  // no padding: cells are copied by the million, and whole words go fastest
  FieldType type_ = FieldType::kText;
};

}  // namespace platform
