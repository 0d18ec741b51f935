#pragma once

#include <string>

#include "platform/cell.h"

namespace sqlserver {

/// Adds a cell to a text that is the same for equal rows alone.
inline void AppendCell(const platform::Cell& cell, std::string& text) {
  using platform::FieldType;
  const auto raw = [&text](const auto& value) {
    text.append(reinterpret_cast<const char*>(&value), sizeof value);
  };
  text += cell.IsNull() ? '0' : '1';
  if (cell.IsNull()) return;
  if (cell.type() == FieldType::kText || cell.type() == FieldType::kBytes) {
    raw(cell.block().size());
    text += cell.block();
  } else if (cell.type() == FieldType::kDouble) {
    raw(cell.real());
  } else {
    raw(cell.integer());
  }
}

}  // namespace sqlserver
