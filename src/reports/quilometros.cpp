#include "reports/quilometros.h"

#include <algorithm>
#include <map>

#include "reports/contador.h"

namespace reports {
namespace {

/// The sum of absent and present figures: absent when all are.
struct SomaDeValores {
  Soma soma;
  bool tem = false;
  void Junta(const Valor& valor) {
    if (!valor) return;
    soma += *valor;
    tem = true;
  }
  Valor valor() const { return tem ? soma.valor() : Valor(); }
};

LinhaDeQuilometros Somadas(const std::string& chave, const std::vector<LinhaDeQuilometros>& linhas,
                           std::size_t colunas) {
  LinhaDeQuilometros soma;
  soma.chave = chave;
  std::vector<SomaDeValores> celulas(colunas);
  SomaDeValores total;
  for (const LinhaDeQuilometros& linha : linhas) {
    for (std::size_t i = 0; i < colunas; ++i) celulas[i].Junta(linha.celulas[i]);
    total.Junta(linha.total);
    soma.dias += linha.dias;
    soma.recuos += linha.recuos;
    if (linha.ultimaLeitura) soma.ultimaLeitura = std::max(soma.ultimaLeitura, linha.ultimaLeitura);
  }
  for (const SomaDeValores& celula : celulas) soma.celulas.push_back(celula.valor());
  soma.total = total.valor();
  return soma;
}

LinhaDeQuilometros LinhaDa(const Frota& frota, std::size_t viatura, const Pedido& pedido,
                           const std::vector<Intervalo>& colunas) {
  LinhaDeQuilometros linha;
  linha.chave = frota.viaturas[viatura].matricula;
  linha.celulas.resize(colunas.size());
  const Quilometragem km(frota, viatura);
  if (km.vazia()) return linha;
  for (std::size_t i = 0; i < colunas.size(); ++i) linha.celulas[i] = km.Em(colunas[i].dias);
  linha.total = km.Em(pedido.periodo);
  linha.dias = km.DiasEm(pedido.periodo);
  linha.ultimaLeitura = km.ultima();
  linha.recuos = km.RecuosEm(pedido.periodo);
  return linha;
}

}  // namespace

Quilometragem::Quilometragem(const Frota& frota, std::size_t viatura) {
  std::vector<Leitura> porDia;
  const auto junta = [&porDia](Dia dia, Currency km) {
    if (!porDia.empty() && porDia.back().dia == dia)
      porDia.back().km = std::max(porDia.back().km, km);
    else
      porDia.push_back({dia, km, {}});
  };
  const Viatura& v = frota.viaturas[viatura];
  bool comInicial = !SemData(v.dataKmInicial);
  const auto [inicio, fim] = frota.De(viatura);
  for (const Evento* evento = inicio; evento != fim; ++evento) {
    const bool le = evento->especie == Especie::kRevisao || frota.EAbastecimento(*evento);
    if (!le || evento->km <= 0 || SemData(evento->data)) continue;
    if (comInicial && v.dataKmInicial.days() <= evento->data.days()) {
      junta(v.dataKmInicial.days(), v.kmInicial);
      comInicial = false;
    }
    junta(evento->data.days(), evento->km);
  }
  if (comInicial) junta(v.dataKmInicial.days(), v.kmInicial);
  Segue(porDia);
}

void Quilometragem::Segue(const std::vector<Leitura>& porDia) {
  if (porDia.empty()) return;
  Contador contador(porDia.front().km);
  leituras_.push_back(porDia.front());
  for (std::size_t i = 1; i < porDia.size(); ++i) {
    const Soma antes = contador.distancia();
    switch (contador.Le(porDia[i].km, i)) {
      case Contador::Leitura::kRecuo:
        recuos_.push_back(porDia[i].dia);
        continue;
      case Contador::Leitura::kNovaContagem: {
        recuos_.resize(recuos_.size() - 2);
        leituras_.push_back({porDia[contador.posicaoDaPrimeira()].dia, contador.kmDaPrimeira(), antes});
        Soma ateSegunda = antes;
        ateSegunda += contador.kmDaSegunda();
        ateSegunda -= contador.kmDaPrimeira();
        leituras_.push_back({porDia[contador.posicaoDaSegunda()].dia, contador.kmDaSegunda(), ateSegunda});
        break;
      }
      default:
        break;
    }
    leituras_.push_back({porDia[i].dia, porDia[i].km, contador.distancia()});
  }
}

Valor Quilometragem::Ate(Dia dia) const {
  const auto depois = std::upper_bound(leituras_.begin(), leituras_.end(), dia,
                                       [](Dia d, const Leitura& leitura) { return d < leitura.dia; });
  if (depois == leituras_.begin()) return Currency();
  const Leitura& antes = *(depois - 1);
  if (depois == leituras_.end()) return antes.ate.valor();
  Soma troco = depois->ate;
  troco -= antes.ate;
  const Valor inteiro = troco.valor();
  if (!inteiro) return {};
  Soma ate = antes.ate;
  ate += Parte(*inteiro, dia - antes.dia, depois->dia - antes.dia);
  return ate.valor();
}

Valor Quilometragem::Em(const Periodo& periodo) const {
  const Valor antes = Ate(periodo.de - 1);
  const Valor ate = Ate(periodo.ate);
  if (!antes || !ate) return {};
  return *ate - *antes;
}

std::int64_t Quilometragem::DiasEm(const Periodo& periodo) const {
  return std::max<std::int64_t>(0, std::min(periodo.ate, ultima()) - std::max(periodo.de - 1, primeira()));
}

std::int64_t Quilometragem::RecuosEm(const Periodo& periodo) const {
  return std::count_if(recuos_.begin(), recuos_.end(),
                       [&](Dia dia) { return dia >= periodo.de && dia <= periodo.ate; });
}

Quilometros QuilometrosDaFrota(const Frota& frota, const Pedido& pedido) {
  const Seleccao seleccao(frota, pedido);
  Quilometros quilometros;
  quilometros.colunas = ColunasDe(pedido.periodo, pedido.coluna);
  const std::size_t colunas = quilometros.colunas.size();
  std::map<std::string, std::vector<LinhaDeQuilometros>> grupos;
  for (std::size_t i = 0; i < frota.viaturas.size(); ++i) {
    if (!seleccao.Passa(i)) continue;
    if (i % 64 == 0) VerSeCancela(pedido);
    LinhaDeQuilometros linha = LinhaDa(frota, i, pedido, quilometros.colunas);
    if (!frota.viaturas[i].existe && !linha.ultimaLeitura) continue;
    grupos[GrupoDaViatura(frota.viaturas[i], pedido.por)].push_back(std::move(linha));
  }
  for (const auto& [chave, linhas] : grupos) quilometros.linhas.push_back(Somadas(chave, linhas, colunas));
  std::stable_sort(quilometros.linhas.begin(), quilometros.linhas.end(),
                   [](const auto& a, const auto& b) { return AntesNaOrdem(a.chave, b.chave); });
  quilometros.total = Somadas("", quilometros.linhas, colunas);
  return quilometros;
}

std::vector<Projeccao> ProjeccoesDeLeasing(const Frota& frota, const Pedido& pedido) {
  const Seleccao seleccao(frota, pedido);
  std::vector<Projeccao> projeccoes;
  for (std::size_t i = 0; i < frota.viaturas.size(); ++i) {
    const Viatura& viatura = frota.viaturas[i];
    if (!seleccao.Passa(i) || !viatura.leasing || SemData(viatura.valContrato)) continue;
    const Quilometragem km(frota, i);
    if (km.vazia()) continue;
    Projeccao p;
    p.matricula = viatura.matricula;
    p.limite = viatura.leasing->limite;
    const Dia hoje = km.ultima();
    const Dia fim = viatura.valContrato.days();
    const Periodo doze{Date().AddDays(hoje).AddMonths(-12).days() + 1, hoje};
    p.feitos = km.Em({viatura.leasing->inicio.days() + 1, std::min(hoje, fim)});
    const Valor recentes = km.Em(doze);
    const std::int64_t dias = km.DiasEm(doze);
    if (p.feitos && recentes && dias > 0) {
      const std::int64_t restantes = std::max<Dia>(0, fim - hoje);
      const double porDia = recentes->ToDouble() / static_cast<double>(dias);
      p.previstos = Currency::FromDouble(p.feitos->ToDouble() + porDia * static_cast<double>(restantes));
      p.excesso = std::max(Currency(), *p.previstos - p.limite);
      p.custo = *p.excesso * viatura.leasing->porKm;
      p.acima10 = p.excesso->ToDouble() * 10 > p.limite.ToDouble();
      const double falta = p.limite.ToDouble() - p.feitos->ToDouble();
      if (*p.excesso > 0) p.dia = falta <= 0 ? hoje : hoje + static_cast<Dia>(falta / porDia);
    }
    projeccoes.push_back(std::move(p));
  }
  return projeccoes;
}

}  // namespace reports
