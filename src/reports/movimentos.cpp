#include "reports/movimentos.h"

#include <algorithm>
#include <numeric>
#include <tuple>

#include "reports/custos.h"

namespace reports {
namespace {

/// The groups, in the order of their codes.
template <typename Registo>
std::vector<std::size_t> PorOrdem(const std::vector<Registo>& registos, std::string Registo::*codigo) {
  std::vector<std::size_t> ordem(registos.size());
  std::iota(ordem.begin(), ordem.end(), 0);
  std::sort(ordem.begin(), ordem.end(), [&](std::size_t a, std::size_t b) {
    return AntesNaOrdem(registos[a].*codigo, registos[b].*codigo);
  });
  return ordem;
}

/// Lets the events of the kinds through that are asked for.
class DosTipos {
 public:
  DosTipos(const Frota& frota, const Pedido& pedido) : frota_(frota), tipos_(pedido.tipos) {}
  bool Passa(const Evento& evento) const {
    return tipos_.empty() ||
           std::find(tipos_.begin(), tipos_.end(), ChaveDoTipo(frota_, evento)) != tipos_.end();
  }

 private:
  const Frota& frota_;
  const std::vector<std::string>& tipos_;
};

void Acumula(const Frota& frota, const std::vector<const Evento*>& grupo, Movimentos& movimentos) {
  Soma litros, custo;
  for (const Evento* evento : grupo) {
    if (frota.EAbastecimento(*evento)) litros += evento->qtd;
    custo += evento->custo;
    movimentos.linhas.push_back({evento, litros, custo});
  }
  movimentos.litros += litros;
  movimentos.custo += custo;
}

}  // namespace

Movimentos MovimentosDaFrota(const Frota& frota, const Pedido& pedido) {
  const Seleccao seleccao(frota, pedido);
  const DosTipos tipos(frota, pedido);
  const bool porMotorista = pedido.por == Por::kMotorista;
  Movimentos movimentos;
  std::vector<std::vector<const Evento*>> motoristas(porMotorista ? frota.motoristas.size() + 1 : 0);
  std::vector<const Evento*> grupo;
  for (const std::size_t viatura : PorOrdem(frota.viaturas, &Viatura::matricula)) {
    if (!seleccao.Passa(viatura)) continue;
    VerSeCancela(pedido);
    grupo.clear();
    const auto [inicio, fim] = frota.De(viatura);
    for (const Evento* evento = inicio; evento != fim; ++evento) {
      if (!seleccao.Passa(*evento) || !tipos.Passa(*evento)) continue;
      if (SemData(evento->data)) ++movimentos.semData;
      if (!pedido.periodo.Tem(evento->data)) continue;
      (porMotorista ? motoristas[static_cast<std::size_t>(evento->motorista) + 1] : grupo).push_back(evento);
    }
    if (!porMotorista) Acumula(frota, grupo, movimentos);
  }
  if (!porMotorista) return movimentos;
  std::vector<std::size_t> ordem = PorOrdem(frota.motoristas, &Motorista::codigo);
  for (std::size_t& lugar : ordem) ++lugar;
  ordem.push_back(0);  // who names no driver comes last
  for (const std::size_t lugar : ordem) {
    std::sort(motoristas[lugar].begin(), motoristas[lugar].end(), [](const Evento* a, const Evento* b) {
      return std::tie(a->data, a->id, a->especie) < std::tie(b->data, b->id, b->especie);
    });
    Acumula(frota, motoristas[lugar], movimentos);
  }
  return movimentos;
}

}  // namespace reports
