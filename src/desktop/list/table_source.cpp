#include "desktop/list/table_source.h"

#include "platform/text.h"

namespace desktop {

std::vector<std::size_t> TableSource::VisibleColumns() const {
  std::vector<std::size_t> visible;
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (!columns_[i].hidden) visible.push_back(i);
  return visible;
}

std::optional<std::size_t> TableSource::FindColumn(const std::string& key) const {
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (platform::EqualsIgnoringCase(columns_[i].key, key)) return i;
  return {};
}

}  // namespace desktop
