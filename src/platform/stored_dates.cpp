#include "platform/stored_dates.h"

#include "platform/runtime_error.h"

namespace platform {

bool FitsDatetime(Date date) {
  static const Date kFirst = Date::FromParts(1753, 1, 1);
  static const Date kLast = Date::FromParts(9999, 12, 31, 23, 59, 59);
  return date.seconds() >= kFirst.seconds() && date.seconds() <= kLast.seconds();
}

void RequireStorableDates(const std::vector<FieldInfo>& fields,
                          const std::vector<std::optional<Variant>>& values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Date* date = values[i] ? values[i]->As<Date>() : nullptr;
    if (date == nullptr || FitsDatetime(*date)) continue;
    throw RuntimeError(kMultipleStep, fields[i].name,
                       "A data de «" + fields[i].name +
                           "» tem de estar entre 01-01-1753 e 31-12-9999, e nada foi gravado. Corrija-a e "
                           "tente de novo.");
  }
}

}  // namespace platform
