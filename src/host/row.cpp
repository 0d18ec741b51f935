#include "host/row.h"

#include "platform/text.h"

namespace zorCrmParvel {

void Row::cut(std::string_view column, std::string_view text) {
  auto field = rows_.Fields(column);
  field.SetValue(platform::Left(text, static_cast<std::size_t>(field.DefinedSize())));
}

}  // namespace zorCrmParvel
