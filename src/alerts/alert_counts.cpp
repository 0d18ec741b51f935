#include "alerts/alert_counts.h"

namespace zorCrmParvel {
namespace {

using Tools::Faixa;

/// Rows are read, not counted: a count would run the statement once more.
constexpr std::size_t kLinhasDeUmaVez = 1000;

/// A condition with its column found.
struct Degrau {
  std::size_t coluna;
  double inicio;
  double fim;
  bool abaixo;  // of `inicio`; else between the two
  Faixa faixa;

  bool Aceita(double valor) const { return abaixo ? valor < inicio : valor >= inicio && valor <= fim; }
};

std::vector<Degrau> Degraus(const platform::Recordset& linhas,
                            const std::vector<platform::FormatCondition>& condicoes) {
  std::vector<Degrau> degraus;
  degraus.reserve(condicoes.size());
  for (const platform::FormatCondition& condicao : condicoes) {
    const auto coluna = linhas.FindField(condicao.column);
    if (!coluna) throw platform::RuntimeError(platform::kNoSuchField, condicao.column);
    degraus.push_back({*coluna, condicao.value1, condicao.value2, condicao.op == platform::kGridLess,
                       FaixaDoEstilo(condicao.style)});
  }
  return degraus;
}

Faixa FaixaDaLinha(platform::Recordset& linhas, std::size_t linha, const std::vector<Degrau>& degraus) {
  for (const Degrau& degrau : degraus) {
    const platform::Cell& celula = linhas.CellAt(linha, degrau.coluna);
    if (!celula.IsNull() && degrau.Aceita(celula.ToVariant().ToDouble())) return degrau.faixa;
  }
  return Faixa::kNenhuma;
}

}  // namespace

Faixa FaixaDoEstilo(std::string_view estilo) {
  if (estilo.starts_with("PintarMnG")) return Faixa::kBreve;
  if (estilo.starts_with("PintarMG")) return Faixa::kMuitoBreve;
  return estilo.starts_with("PintarG") ? Faixa::kPassada : Faixa::kNenhuma;
}

ContagemDeAlertas ContarFaixas(const RecordsetRef& linhas,
                               const std::vector<platform::FormatCondition>& condicoes) {
  const std::vector<Degrau> degraus = Degraus(*linhas, condicoes);
  while (linhas->FetchMore(kLinhasDeUmaVez)) {
  }
  ContagemDeAlertas contagem;
  contagem.linhas = static_cast<long>(linhas->RowsAtHand());
  for (std::size_t linha = 0; linha < static_cast<std::size_t>(contagem.linhas); ++linha) {
    const Faixa faixa = FaixaDaLinha(*linhas, linha, degraus);
    if (faixa == Faixa::kPassada) ++contagem.passadas;
    if (faixa == Faixa::kMuitoBreve) ++contagem.muitoBreves;
    if (faixa == Faixa::kBreve) ++contagem.breves;
  }
  return contagem;
}

}  // namespace zorCrmParvel
