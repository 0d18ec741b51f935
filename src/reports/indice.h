#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "reports/pedido.h"

namespace reports {

/// Finds a record by its code as the database would: case and trailing blanks don't count.
class Indice {
 public:
  void Junta(const std::string& codigo, std::int32_t numero) {
    exactos_.emplace(codigo, numero);
    dobrados_.emplace(Dobrado(codigo), numero);
  }
  /// The record of a code; `novo` makes one for a code that there isn't yet.
  template <typename Novo>
  std::int32_t Acha(std::string_view codigo, const Novo& novo) {
    if (ultimo_ != nullptr && ultimo_->first == codigo) return ultimo_->second;
    procurado_.assign(codigo);
    auto achado = exactos_.find(procurado_);
    if (achado == exactos_.end()) {
      const auto dobrado = dobrados_.find(Dobrado(codigo));
      const std::int32_t numero = dobrado != dobrados_.end() ? dobrado->second : novo(procurado_);
      Junta(procurado_, numero);
      achado = exactos_.find(procurado_);
    }
    ultimo_ = &*achado;
    return achado->second;
  }

 private:
  std::unordered_map<std::string, std::int32_t> exactos_, dobrados_;
  const std::pair<const std::string, std::int32_t>* ultimo_ = nullptr;  // stays where it is
  std::string procurado_;
};

}  // namespace reports
