#pragma once

#include <array>
#include <cstdint>
#include <cstring>
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
    const Achado*& recente = recentes_[Lugar(codigo)];
    if (recente != nullptr && recente->first == codigo) return recente->second;
    procurado_.assign(codigo);
    auto achado = exactos_.find(procurado_);
    if (achado == exactos_.end()) {
      const auto dobrado = dobrados_.find(Dobrado(codigo));
      const std::int32_t numero = dobrado != dobrados_.end() ? dobrado->second : novo(procurado_);
      Junta(procurado_, numero);
      achado = exactos_.find(procurado_);
    }
    recente = &*achado;
    return achado->second;
  }

 private:
  using Achado = std::pair<const std::string, std::int32_t>;
  static constexpr std::size_t kRecentes = 4096;

  /// Where a code was seen last, by its last eight bytes: those in which codes differ.
  static std::size_t Lugar(std::string_view codigo) {
    std::uint64_t fim = 0;
    const std::size_t bytes = codigo.size() < sizeof fim ? codigo.size() : sizeof fim;
    if (bytes != 0) std::memcpy(&fim, codigo.data() + codigo.size() - bytes, bytes);
    return static_cast<std::size_t>((fim * 0x9E3779B97F4A7C15ULL) >> 52);
  }

  std::unordered_map<std::string, std::int32_t> exactos_, dobrados_;
  std::array<const Achado*, kRecentes> recentes_{};  // of `exactos_`, whose pairs stay where they are
  std::string procurado_;
};

}  // namespace reports
