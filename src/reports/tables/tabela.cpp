#include "reports/tables/tabela.h"

#include "platform/format.h"

namespace reports {
namespace {

const char* MascaraDe(Formato formato) {
  switch (formato) {
    case Formato::kPorUnidade:
      return "###,##0.0000";
    case Formato::kMedida:
      return "###,##0.##";
    default:
      return "###,##0.00";
  }
}

}  // namespace

Celula DoValor(const Valor& valor) { return valor ? Celula(*valor) : Celula(); }

std::string TextoDa(const Celula& celula, Formato formato) {
  if (const auto* texto = std::get_if<std::string>(&celula)) return *texto;
  if (const auto* inteiro = std::get_if<std::int64_t>(&celula)) return std::to_string(*inteiro);
  if (const auto* data = std::get_if<Date>(&celula)) return SemData(*data) ? "" : data->ToText();
  if (const auto* logico = std::get_if<bool>(&celula)) return *logico ? "sim" : "";
  const auto* valor = std::get_if<Currency>(&celula);
  if (valor == nullptr) return {};
  std::string texto = platform::FormatNumber(*valor, MascaraDe(formato));
  const bool semDecimais = !texto.empty() && (texto.back() == ',' || texto.back() == '.');
  if (semDecimais) texto.pop_back();
  return texto;
}

bool ENumero(Formato formato) {
  return formato != Formato::kTexto && formato != Formato::kData && formato != Formato::kLogico;
}

std::string TextoDaChave(const Tabela& tabela, const LinhaDaTabela& linha, std::string_view chave) {
  for (std::size_t i = 0; i < tabela.colunas.size(); ++i)
    if (tabela.colunas[i].chave == chave) return TextoDa(linha.celulas[i], tabela.colunas[i].formato);
  return {};
}

std::vector<std::size_t> ColunasParaPessoas(const Tabela& tabela) {
  std::vector<std::size_t> colunas;
  for (std::size_t i = 0; i < tabela.colunas.size(); ++i)
    if (!tabela.colunas[i].soParaMaquinas) colunas.push_back(i);
  return colunas;
}

}  // namespace reports
