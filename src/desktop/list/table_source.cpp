#include "desktop/list/table_source.h"

#include <algorithm>

#include "desktop/look/text.h"
#include "platform/text.h"

namespace desktop {

std::string TableSource::Shown(long row, std::size_t column) const { return FromQt(Text(row, column)); }

bool TableSource::IsSearched(std::size_t column) const {
  const std::vector<std::size_t> visible = VisibleColumns();
  return std::find(visible.begin(), visible.end(), column) != visible.end();
}

std::vector<std::size_t> TableSource::VisibleColumns() const {
  std::vector<std::size_t> visible;
  for (const std::string& key : chosen_)
    if (const auto column = FindColumn(key)) visible.push_back(*column);
  if (!visible.empty()) return visible;
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (!columns_[i].hidden) visible.push_back(i);
  return visible;
}

std::vector<std::size_t> TableSource::OfferedColumns() const {
  std::vector<std::size_t> offered;
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (!columns_[i].hidden || columns_[i].own) offered.push_back(i);
  return offered;
}

std::optional<std::size_t> TableSource::FindColumn(const std::string& key) const {
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (platform::EqualsIgnoringCase(columns_[i].key, key)) return i;
  return {};
}

}  // namespace desktop
