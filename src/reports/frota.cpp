#include "reports/frota.h"

#include <algorithm>
#include <tuple>

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

// What orders events is put in order by itself, being a quarter of their size.
void Frota::Ordenar() {
  struct Chave {
    Date data;
    std::int32_t id;
    std::uint32_t lugar;  // in the order of reading, kind after kind
    bool operator<(const Chave& outra) const {
      return std::tie(data, id, lugar) < std::tie(outra.data, outra.id, outra.lugar);
    }
  };
  inicio_.assign(viaturas.size() + 1, 0);
  for (const Evento& evento : eventos) ++inicio_[static_cast<std::size_t>(evento.viatura) + 1];
  for (std::size_t i = 1; i < inicio_.size(); ++i) inicio_[i] += inicio_[i - 1];
  std::vector<Chave> chaves(eventos.size());
  std::vector<std::size_t> livre(inicio_.begin(), inicio_.end() - 1);
  for (std::uint32_t i = 0; i < eventos.size(); ++i)
    chaves[livre[static_cast<std::size_t>(eventos[i].viatura)]++] = {eventos[i].data, eventos[i].id, i};
  std::vector<Evento> ordenados;
  ordenados.reserve(eventos.size());
  for (std::size_t i = 0; i < viaturas.size(); ++i) {
    Chave* const primeira = chaves.data() + inicio_[i];
    Chave* const fim = chaves.data() + inicio_[i + 1];
    if (!std::is_sorted(primeira, fim)) std::sort(primeira, fim);
    for (const Chave* chave = primeira; chave != fim; ++chave) ordenados.push_back(eventos[chave->lugar]);
  }
  eventos = std::move(ordenados);
}

std::pair<const Evento*, const Evento*> Frota::De(std::size_t viatura) const {
  return {eventos.data() + inicio_[viatura], eventos.data() + inicio_[viatura + 1]};
}

}  // namespace reports
