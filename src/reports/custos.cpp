#include "reports/custos.h"

#include <algorithm>

namespace reports {
namespace {

/// The first of each month in which a vehicle's rent falls due.
void CadaRenda(const Frota& frota, std::size_t indice, const Periodo& alcance,
               const std::function<void(const Parcela&)>& recebe) {
  const Viatura& viatura = frota.viaturas[indice];
  if (SemData(viatura.dataMatricula) || SemData(viatura.valContrato) || viatura.mensalidade == 0) return;
  const auto primeiroDoMes = [](Date data) { return Date::FromParts(data.year(), data.month(), 1); };
  const Date ultima = std::min(viatura.valContrato, Date().AddDays(alcance.ate));
  Date dia = std::max(primeiroDoMes(viatura.dataMatricula), primeiroDoMes(Date().AddDays(alcance.de)));
  for (; dia.days() <= ultima.days(); dia = dia.AddMonths(1)) {
    if (dia.days() < alcance.de) continue;
    Parcela renda;
    renda.viatura = indice;
    renda.data = dia;
    renda.valor = viatura.mensalidade;
    recebe(renda);
  }
}

Parcela ParcelaDe(const Evento& evento, const Pedido& pedido) {
  Parcela parcela;
  parcela.evento = &evento;
  parcela.viatura = static_cast<std::size_t>(evento.viatura);
  parcela.data = evento.data;
  parcela.valor = evento.custo;
  parcela.repartida = evento.especie == Especie::kApolice && pedido.premiosRepartidos &&
                      !SemData(evento.data) && !SemData(evento.validade) &&
                      evento.validade.days() >= evento.data.days();
  parcela.ate = evento.validade.days();
  return parcela;
}

/// The row of each cost, found by number where that is possible.
class Linhas {
 public:
  Linhas(const Frota& frota, Por por, Pivot& pivot) : frota_(frota), por_(por), pivot_(pivot) {
    const std::size_t quantas =
        std::max({frota.viaturas.size(), frota.motoristas.size() + 1, frota.tipos.size() + kEspecies + 2});
    conhecidas_.assign(quantas, kDesconhecida);
  }

  std::size_t De(const Parcela& parcela) {
    std::size_t& linha = conhecidas_.at(Numero(parcela));
    if (linha == kDesconhecida) linha = pivot_.Linha(Chave(parcela));
    return linha;
  }

 private:
  static constexpr std::size_t kDesconhecida = static_cast<std::size_t>(-1);

  std::size_t Numero(const Parcela& parcela) const {
    if (por_ == Por::kMotorista)
      return parcela.evento == nullptr ? 0 : static_cast<std::size_t>(parcela.evento->motorista + 1);
    if (por_ != Por::kTipo) return parcela.viatura;
    if (parcela.evento == nullptr) return 0;
    const bool gasto = parcela.evento->especie == Especie::kGasto;
    return gasto ? kEspecies + 1 + static_cast<std::size_t>(parcela.evento->tipo + 1)
                 : static_cast<std::size_t>(parcela.evento->especie);
  }

  std::string Chave(const Parcela& parcela) const {
    if (por_ == Por::kTipo) return parcela.evento == nullptr ? kRendas : ChaveDoTipo(frota_, *parcela.evento);
    if (por_ != Por::kMotorista) return GrupoDaViatura(frota_.viaturas[parcela.viatura], por_);
    if (parcela.evento == nullptr || parcela.evento->motorista < 0) return "";
    return frota_.motoristas[static_cast<std::size_t>(parcela.evento->motorista)].codigo;
  }

  const Frota& frota_;
  Por por_;
  Pivot& pivot_;
  std::vector<std::size_t> conhecidas_;
};

}  // namespace

std::string ChaveDoTipo(const Frota& frota, const Evento& evento) {
  std::string especie = TextosDe(evento.especie).chave;
  if (evento.especie != Especie::kGasto) return especie;
  return especie + ":" + (evento.tipo < 0 ? "" : frota.TipoDe(evento).codigo);
}

std::string NomeDoTipo(const Frota& frota, const std::string& chave) {
  if (chave == kRendas) return "Rendas";
  for (std::size_t i = 0; i < kEspecies; ++i)
    if (chave == TextosDe(static_cast<Especie>(i)).chave) return TextosDe(static_cast<Especie>(i)).nome;
  std::string tipo = chave.substr(chave.find(':') + 1);
  for (const Tipo& t : frota.tipos)
    if (t.codigo == tipo && !t.nome.empty()) return t.nome;
  return tipo;
}

void CadaParcela(const Frota& frota, const Pedido& pedido, const Periodo& alcance,
                 const std::function<void(const Parcela&)>& recebe) {
  const Seleccao seleccao(frota, pedido);
  for (std::size_t i = 0; i < frota.viaturas.size(); ++i) {
    if (!seleccao.Passa(i)) continue;
    if (i % 64 == 0) VerSeCancela(pedido);
    const auto [inicio, fim] = frota.De(i);
    for (const Evento* evento = inicio; evento != fim; ++evento)
      if (seleccao.Passa(*evento)) recebe(ParcelaDe(*evento, pedido));
    if (pedido.comRendas && !seleccao.PorMotorista()) CadaRenda(frota, i, alcance, recebe);
  }
}

Custos CustosDaFrota(const Frota& frota, const Pedido& pedido) {
  Pivot pivot(pedido);
  Linhas linhas(frota, pedido.por, pivot);
  CadaParcela(frota, pedido, pivot.Alcance(), [&](const Parcela& parcela) {
    if (parcela.repartida) {
      pivot.Junta(linhas.De(parcela), Repartido{parcela.valor, parcela.data.days(), parcela.ate});
    } else {
      pivot.Junta(linhas.De(parcela), parcela.data, parcela.valor);
    }
  });
  Custos custos;
  custos.colunas = pivot.colunas();
  custos.linhas = pivot.Linhas(frota, pedido.por);
  custos.total = pivot.Total();
  if (pedido.por == Por::kTipo)
    for (LinhaDoPivot& linha : custos.linhas) linha.nome = NomeDoTipo(frota, linha.chave);
  return custos;
}

}  // namespace reports
