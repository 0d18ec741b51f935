#pragma once

#include <string>
#include <string_view>

#include "exchange/profile/import_kinds.h"

namespace exchange {

/// What people call a column of a kind: "Matrícula", "Valor unitário".
std::string LabelOf(const ImportKind& kind, std::string_view column);
/// How well the heading of a file's column fits a column of a kind: 0 not at all, 100 by name. `column` may
/// be "Hora", the time that goes with the kind's date.
int Fit(const ImportKind& kind, std::string_view column, std::string_view heading);

}  // namespace exchange
