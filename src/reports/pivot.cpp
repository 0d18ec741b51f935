#include "reports/pivot.h"

#include <algorithm>

namespace reports {

Pivot::Pivot(const Pedido& pedido)
    : periodo_(pedido.periodo),
      anterior_(pedido.periodo.Anterior()),
      colunas_(ColunasDe(pedido.periodo, pedido.coluna)) {}

std::size_t Pivot::Linha(const std::string& chave) {
  const std::size_t linha = chaves_.Linha(chave);
  if (linha == linhas_.size()) {
    linhas_.emplace_back();
    linhas_.back().chave = chave;
    linhas_.back().celulas.resize(colunas_.size());
  }
  return linha;
}

void Pivot::Junta(std::size_t linha, Date data, Currency valor) {
  LinhaDoPivot& destino = linhas_[linha];
  if (SemData(data)) {
    destino.semData += valor;
  } else if (periodo_.Tem(data)) {
    destino.celulas[ColunaDoDia(colunas_, data.days())] += valor;
    destino.total += valor;
  } else if (anterior_.Tem(data)) {
    destino.anterior += valor;
  }
}

void Pivot::Junta(std::size_t linha, const Repartido& valor) {
  LinhaDoPivot& destino = linhas_[linha];
  const Dia de = std::max(valor.de, periodo_.de);
  const Dia ate = std::min(valor.ate, periodo_.ate);
  for (std::size_t i = de > ate ? colunas_.size() : ColunaDoDia(colunas_, de);
       i < colunas_.size() && colunas_[i].dias.de <= ate; ++i) {
    const Currency parte = valor.Em(colunas_[i].dias);
    destino.celulas[i] += parte;
    destino.total += parte;
  }
  destino.anterior += valor.Em(anterior_);
}

std::vector<LinhaDoPivot> Pivot::Linhas(const Frota& frota, Por por) const {
  std::vector<LinhaDoPivot> linhas = linhas_;
  for (LinhaDoPivot& linha : linhas) linha.nome = NomeDoGrupo(frota, por, linha.chave);
  std::sort(linhas.begin(), linhas.end(),
            [](const auto& a, const auto& b) { return AntesNaOrdem(a.chave, b.chave); });
  return linhas;
}

LinhaDoPivot Pivot::Total() const {
  LinhaDoPivot total;
  total.celulas.resize(colunas_.size());
  for (const LinhaDoPivot& linha : linhas_) {
    for (std::size_t i = 0; i < colunas_.size(); ++i) total.celulas[i] += linha.celulas[i];
    total.total += linha.total;
    total.anterior += linha.anterior;
    total.semData += linha.semData;
  }
  return total;
}

Valor Diferenca(const LinhaDoPivot& linha) {
  Soma diferenca = linha.total;
  diferenca -= linha.anterior;
  return diferenca.valor();
}

Valor Percentagem(const LinhaDoPivot& linha) { return Por100(Diferenca(linha), linha.anterior.valor()); }

}  // namespace reports
