#include "platform/cell.h"

namespace platform {

Variant Cell::ToVariant() const {
  if (null_) return Variant::Null{};
  switch (type_) {
    case FieldType::kBool:
      return integer_ != 0;
    case FieldType::kInteger:
      return static_cast<std::int16_t>(integer_);
    case FieldType::kLong:
      return static_cast<std::int32_t>(integer_);
    case FieldType::kDouble:
      return real_;
    case FieldType::kCurrency:
      return Currency::FromTenThousandths(integer_);
    case FieldType::kDate:
      return Date::FromSeconds(integer_);
    case FieldType::kText:
      return block();
    case FieldType::kBytes:
      return Bytes(block().begin(), block().end());
  }
  return {};
}

std::string Cell::ToText() const {
  if (null_) return {};
  if (type_ == FieldType::kText) return std::string(block());
  return ToVariant().ToText();
}

}  // namespace platform
