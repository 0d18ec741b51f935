#include "desktop/list/row_entry.h"

namespace desktop {

const std::vector<RowEntry>& RowEntries() {
  static const std::vector<RowEntry> entries = {};
  return entries;
}

}  // namespace desktop
