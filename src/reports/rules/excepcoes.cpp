#include "reports/rules/excepcoes.h"

#include <algorithm>

#include "reports/rules/regras.h"

namespace reports {

const TextosDaRegra& TextosDe(Regra regra) {
  static constexpr std::array<TextosDaRegra, kRegras> kTextos = {{
      {"consumo", "Consumo dos dois últimos intervalos longe do habitual", "% da mediana", 25, true},
      {"deposito", "Quantidade acima do depósito", "vezes o maior abastecimento, sem depósito conhecido", 0,
       true},
      {"mesmo_dia", "Mais de um abastecimento do mesmo tipo no dia", "", 0, true},
      {"km_recua", "Quilómetros abaixo dos já lidos", "", 0, true},
      {"km_por_dia", "Quilómetros a mais por dia", "km por dia", 1500, true},
      {"preco", "Preço longe do habitual no mês", "% da mediana", 15, true},
      {"inactiva", "Abastecimento depois de a viatura sair de serviço", "", 0, true},
      {"fim_de_semana", "Abastecimento ao fim-de-semana", "", 0, false},
      {"noite", "Abastecimento das 22 às 6 horas", "", 0, false},
      {"combustivel", "Combustível que a viatura não leva", "", 0, true},
      {"repetido", "Gasto igual no mesmo dia", "", 0, true},
      {"carta", "Carta do motorista caducada", "", 0, true},
      {"sem_viatura", "Viatura que não existe", "", 0, true},
      {"sem_motorista", "Motorista que não existe", "", 0, true},
  }};
  return kTextos[static_cast<std::size_t>(regra)];
}

Ajustes AjustesIniciais() {
  Ajustes ajustes;
  for (std::size_t i = 0; i < kRegras; ++i) {
    const TextosDaRegra& textos = TextosDe(static_cast<Regra>(i));
    ajustes[i] = {textos.activaInicial, textos.limiarInicial};
  }
  ajustes[static_cast<std::size_t>(Regra::kDeposito)].limiar = Currency::FromDouble(1.5);
  return ajustes;
}

std::vector<Achado> Excepcoes(const Frota& frota, const Pedido& pedido, const Ajustes& ajustes) {
  std::vector<Achado> achados;
  Relator relator(frota, pedido, ajustes, achados);
  const Seleccao seleccao(frota, pedido);
  const PrecosDoMes precos(frota, pedido.periodo);
  std::vector<const Evento*> fills;
  for (std::size_t i = 0; i < frota.viaturas.size(); ++i) {
    if (!seleccao.Passa(i)) continue;
    if (i % 64 == 0) VerSeCancela(pedido);
    fills.clear();
    const auto [inicio, fim] = frota.De(i);
    for (const Evento* evento = inicio; evento != fim; ++evento)
      if (!SemData(evento->data) && frota.EAbastecimento(*evento)) fills.push_back(evento);
    VerConsumo(relator, fills);
    VerQuilometros(relator, fills);
    VerAbastecimentos(relator, fills, precos);
    VerEventos(relator, inicio, fim);
  }
  std::stable_sort(achados.begin(), achados.end(), [&frota](const Achado& a, const Achado& b) {
    const std::string& x = frota.ViaturaDe(*a.evento).matricula;
    const std::string& y = frota.ViaturaDe(*b.evento).matricula;
    if (x != y) return AntesNaOrdem(x, y);
    return std::tie(a.evento->data, a.evento->id, a.regra) < std::tie(b.evento->data, b.evento->id, b.regra);
  });
  return achados;
}

}  // namespace reports
