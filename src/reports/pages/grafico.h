#pragma once

#include <optional>
#include <string>
#include <vector>

/// A chart before anybody draws it.
namespace reports {

struct Serie {
  std::string nome;
  std::vector<std::optional<double>> valores;  // one for each place; absent where there is nothing to show
};

enum class Forma { kLinhas, kBarras, kBarrasEmpilhadas };

struct Grafico {
  std::string titulo;
  std::string unidade;  // of the values: "€", "L/100"
  Forma forma = Forma::kBarras;
  std::vector<std::string> lugares;  // along the axis: "2026-01"
  std::vector<Serie> series;

  bool Vazio() const;
};

}  // namespace reports
