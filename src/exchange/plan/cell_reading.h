#pragma once

#include <string>

#include "exchange/plan/row_mapper.h"
#include "exchange/values/fold.h"

namespace exchange {

/// Throws Refusal when a formula left nothing that could be read.
inline void RequireSound(const TableCell& cell, const ImportColumn& column) {
  if (cell.kind == CellKind::kFormulaWithoutValue)
    throw Refusal{column.name,
                  "A fórmula não tem valor guardado: abra e grave o ficheiro na folha de cálculo."};
  if (cell.kind == CellKind::kError) throw Refusal{column.name, "A célula tem o erro " + cell.text + "."};
}

inline const TableCell* CellAt(const SourceRow& source, int place) {
  if (place < 0 || static_cast<std::size_t>(place) >= source.cells.size()) return nullptr;
  return &source.cells[static_cast<std::size_t>(place)];
}

inline bool IsBlank(const TableCell* cell) {
  return cell == nullptr || cell->kind == CellKind::kEmpty ||
         (cell->kind == CellKind::kText && Stripped(cell->text).empty());
}

inline const std::string* CorrectionOf(const SourceRow& source, std::string_view column) {
  if (source.corrections == nullptr) return nullptr;
  const auto found = source.corrections->find(column);
  return found == source.corrections->end() ? nullptr : &found->second;
}

inline std::string Quoted(const std::string& text) { return "«" + Stripped(text) + "»"; }

}  // namespace exchange
