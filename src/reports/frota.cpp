#include "reports/frota.h"

#include <algorithm>
#include <tuple>

#include "platform/recordset.h"

namespace reports {

const TextosDaEspecie& TextosDe(Especie especie) {
  static constexpr std::array<TextosDaEspecie, kEspecies> kTextos = {{
      {"gastos", "Gastos", "zor_PV_Gastos", "Gastos"},
      {"revisoes", "Revisões", "zor_PV_Revisoes", "Revisoes"},
      {"inspecoes", "Inspecções", "zor_PV_Inspecoes", "Inspecoes"},
      {"acessorios", "Acessórios", "zor_PV_Acessorios", "Acessorios"},
      {"multas", "Multas", "zor_PV_Multas", "Multas"},
      {"sinistros", "Sinistros", "zor_PV_Sinistros", "Sinistros"},
      {"apolices", "Apólices", "zor_PV_Seguros", "Seguros"},
  }};
  return kTextos[static_cast<std::size_t>(especie)];
}

void Frota::Ordenar() {
  inicio_.assign(viaturas.size() + 1, 0);
  for (const Evento& evento : eventos) ++inicio_[static_cast<std::size_t>(evento.viatura) + 1];
  for (std::size_t i = 1; i < inicio_.size(); ++i) inicio_[i] += inicio_[i - 1];
  std::vector<Evento> porViatura(eventos.size());
  std::vector<std::size_t> livre(inicio_.begin(), inicio_.end() - 1);
  for (const Evento& evento : eventos) porViatura[livre[static_cast<std::size_t>(evento.viatura)]++] = evento;
  eventos = std::move(porViatura);
  const auto antes = [](const Evento& a, const Evento& b) {
    return std::tie(a.data, a.id, a.especie) < std::tie(b.data, b.id, b.especie);
  };
  for (std::size_t i = 0; i < viaturas.size(); ++i) {
    Evento* const primeiro = eventos.data() + inicio_[i];
    Evento* const fim = eventos.data() + inicio_[i + 1];
    if (!std::is_sorted(primeiro, fim, antes)) std::sort(primeiro, fim, antes);
  }
}

std::pair<const Evento*, const Evento*> Frota::De(std::size_t viatura) const {
  return {eventos.data() + inicio_[viatura], eventos.data() + inicio_[viatura + 1]};
}

}  // namespace reports
