#include "reports/consumo_da_viatura.h"

#include <algorithm>
#include <map>

#include "reports/contador.h"

namespace reports {
namespace {

using Abastecimentos = std::vector<const Evento*>;

/// The fills of one type: those with a date up to the end of the period in order, and the others.
struct DoTipo {
  Abastecimentos datados;
  Soma semData;
  bool temSemData = false;
};

/// Follows the fills of one type from their base to their last reading.
class Percurso {
 public:
  Percurso(const Abastecimentos& fills, Dia de) : fills_(fills), de_(de) {}

  void Segue(const Viatura* comKmInicial, ConsumoDoTipo& linha) {
    const std::size_t primeiro = AchaBase(comKmInicial, linha);
    for (std::size_t i = 0; i < fills_.size(); ++i)
      if (fills_[i]->data.days() >= de_) comKm_ += fills_[i]->km > 0 ? 1 : 0;
    if (linha.kmBase) Conta(primeiro, linha);
    if (!linha.somas.temDistancia) linha.motivo = Motivo(linha);
  }

 private:
  /// Sets the base; the first fill after it.
  std::size_t AchaBase(const Viatura* comKmInicial, ConsumoDoTipo& linha) {
    std::size_t noPeriodo = 0;
    while (noPeriodo < fills_.size() && fills_[noPeriodo]->data.days() < de_) ++noPeriodo;
    for (std::size_t i = noPeriodo; i-- > 0;) {
      if (fills_[i]->km <= 0) continue;
      linha.kmBase = fills_[i]->km;
      return i + 1;
    }
    if (comKmInicial != nullptr && comKmInicial->kmInicial > 0) {
      linha.kmBase = comKmInicial->kmInicial;
      return 0;
    }
    for (std::size_t i = noPeriodo; i < fills_.size(); ++i) {
      if (fills_[i]->km <= 0) continue;
      linha.kmBase = fills_[i]->km;
      baseNoPeriodo_ = true;
      return i + 1;
    }
    return fills_.size();
  }

  void Conta(std::size_t primeiro, ConsumoDoTipo& linha) {
    Contador contador(*linha.kmBase);
    std::size_t porContar = primeiro;
    for (std::size_t i = primeiro; i < fills_.size(); ++i) {
      if (fills_[i]->km <= 0) continue;
      const auto leitura = contador.Le(fills_[i]->km, i);
      const bool nova = leitura == Contador::Leitura::kNovaContagem;
      if (leitura != Contador::Leitura::kAvanca && !nova) continue;
      for (; porContar <= i; ++porContar)
        if (!nova || porContar != contador.posicaoDaPrimeira()) ContaFill(*fills_[porContar], linha.somas);
      linha.kmFim = fills_[i]->km;
    }
    linha.somas.distancia = contador.distancia();
    linha.somas.temDistancia = linha.kmFim.has_value();
  }

  static void ContaFill(const Evento& fill, SomasDeConsumo& somas) {
    ++somas.contados;
    somas.litrosContados += fill.qtd;
    somas.custoContado += fill.custo;
    somas.maior = std::max(somas.maior, fill.qtd);
  }

  const char* Motivo(const ConsumoDoTipo& linha) const {
    if (comKm_ == 0 || !linha.kmBase) return "sem quilómetros";
    return baseNoPeriodo_ && comKm_ == 1 ? "só um abastecimento" : "quilómetros não avançam";
  }

  const Abastecimentos& fills_;
  Dia de_;
  int comKm_ = 0;  // fills in the period with kilometres
  bool baseNoPeriodo_ = false;
};

}  // namespace

void SomasDeConsumo::Junta(const SomasDeConsumo& linha) {
  litros += linha.litros;
  custo += linha.custo;
  semData += linha.semData;
  if (!linha.temDistancia) return;
  temDistancia = true;
  distancia += linha.distancia;
  litrosContados += linha.litrosContados;
  custoContado += linha.custoContado;
  contados += linha.contados;
  maior = std::max(maior, linha.maior);
}

std::vector<ConsumoDoTipo> ConsumoDaViatura(const Frota& frota, std::size_t viatura, const Periodo& periodo) {
  std::map<int, DoTipo> tipos;
  const Evento* primeiroDeTodos = nullptr;
  const auto [inicio, fim] = frota.De(viatura);
  for (const Evento* evento = inicio; evento != fim; ++evento) {
    if (!frota.EAbastecimento(*evento)) continue;
    if (SemData(evento->data)) {
      tipos[evento->tipo].semData += evento->qtd;
      tipos[evento->tipo].temSemData = true;
      continue;
    }
    if (primeiroDeTodos == nullptr) primeiroDeTodos = evento;
    if (evento->data.days() <= periodo.ate) tipos[evento->tipo].datados.push_back(evento);
  }
  std::vector<ConsumoDoTipo> linhas;
  for (const auto& [tipo, fills] : tipos) {
    ConsumoDoTipo linha;
    linha.tipo = tipo;
    linha.somas.semData = fills.semData;
    bool noPeriodo = false;
    for (const Evento* fill : fills.datados) {
      if (fill->data.days() < periodo.de) continue;
      noPeriodo = true;
      linha.somas.litros += fill->qtd;
      linha.somas.custo += fill->custo;
    }
    if (!noPeriodo && !fills.temSemData) continue;
    if (!noPeriodo) {
      linha.motivo = "sem data";
    } else {
      const bool desdeOInicio = primeiroDeTodos->data.days() >= periodo.de && primeiroDeTodos->tipo == tipo;
      Percurso(fills.datados, periodo.de).Segue(desdeOInicio ? &frota.viaturas[viatura] : nullptr, linha);
    }
    linhas.push_back(std::move(linha));
  }
  return linhas;
}

}  // namespace reports
