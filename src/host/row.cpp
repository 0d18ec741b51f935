#include "host/row.h"

#include "platform/text.h"

namespace zorCrmParvel {

using platform::Date;
using platform::Variant;

Date Row::dateOrZero(std::string_view column) const {
  const Variant found = value(column);
  return found.IsNull() ? Date() : found.ToDate();
}

std::string Row::textOrEmpty(std::string_view column) const {
  const Variant found = value(column);
  return found.IsNull() ? std::string() : found.ToText();
}

std::int16_t Row::integerOrZero(std::string_view column) const {
  const Variant found = value(column);
  return found.IsNull() ? std::int16_t{0} : found.ToInteger();
}

void Row::putDateOrNull(std::string_view column, Date date) {
  put(column, date.IsZero() ? Variant(Variant::Null{}) : Variant(date));
}

void Row::cut(std::string_view column, std::string_view text) {
  auto field = rows_.Fields(column);
  field.SetValue(platform::Left(text, static_cast<std::size_t>(field.DefinedSize())));
}

}  // namespace zorCrmParvel
