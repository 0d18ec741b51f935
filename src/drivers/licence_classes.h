#pragma once

#include <array>

namespace zorCrmParvel {

/// The licence classes, by the number that the tables hold.
inline const std::array<const char*, 10>& TiposCarta() {
  static constexpr std::array<const char*, 10> kTipos = {
      "B    - Ligeiros",
      "C    - Pesados Mercadorias",
      "C1   - Pesados Mercadorias",
      "D    - Pesados Passageiros",
      "D1   - Pesados Passageiros",
      "B+E  - Reboques e Semi-Reboques",
      "C1+E - Reboques e Semi-Reboques",
      "C+E  - Reboques e Semi-Reboques",
      "D1+E - Reboques e Semi-Reboques",
      "D+E  - Reboques e Semi-Reboques",
  };
  return kTipos;
}

}  // namespace zorCrmParvel
