#include "alerts/alert_counts.h"

namespace zorCrmParvel {
namespace {

using platform::FormatCondition;
using Tools::Faixa;

/// Rows are read, not counted: a count would run the statement once more.
constexpr std::size_t kLinhasDeUmaVez = 1000;

/// The columns of the conditions, each in its place.
std::vector<std::size_t> Colunas(const platform::Recordset& linhas,
                                 const std::vector<FormatCondition>& condicoes) {
  std::vector<std::size_t> colunas;
  colunas.reserve(condicoes.size());
  for (const FormatCondition& condicao : condicoes) {
    const auto coluna = linhas.FindField(condicao.column);
    if (!coluna) throw platform::RuntimeError(platform::kNoSuchField, condicao.column);
    colunas.push_back(*coluna);
  }
  return colunas;
}

}  // namespace

ContagemDeAlertas ContarFaixas(const RecordsetRef& linhas, const std::vector<FormatCondition>& condicoes) {
  const std::vector<std::size_t> colunas = Colunas(*linhas, condicoes);
  while (linhas->FetchMore(kLinhasDeUmaVez)) {
  }
  ContagemDeAlertas contagem;
  contagem.linhas = static_cast<long>(linhas->RowsAtHand());
  for (std::size_t linha = 0; linha < static_cast<std::size_t>(contagem.linhas); ++linha) {
    const FormatCondition* condicao = platform::FirstMet(
        condicoes, [&](std::size_t i) { return linhas->CellAt(linha, colunas[i]).ToVariant(); });
    const Faixa faixa = condicao == nullptr ? Faixa::kNenhuma : FaixaDe(*condicao);
    if (faixa == Faixa::kPassada) ++contagem.passadas;
    if (faixa == Faixa::kMuitoBreve) ++contagem.muitoBreves;
    if (faixa == Faixa::kBreve) ++contagem.breves;
  }
  return contagem;
}

}  // namespace zorCrmParvel
