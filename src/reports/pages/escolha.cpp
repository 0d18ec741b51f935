#include "reports/pages/escolha.h"

#include <sstream>

namespace reports {

const std::vector<PalavraDeColuna>& PalavrasDeColuna() {
  static const std::vector<PalavraDeColuna> kPalavras = {{Coluna::kMes, "mes", "Mês"},
                                                         {Coluna::kTrimestre, "trimestre", "Trimestre"},
                                                         {Coluna::kAno, "ano", "Ano"}};
  return kPalavras;
}

Pedido Escolha::PedidoEm(Date hoje) const {
  Pedido pedido;
  pedido.periodo = PeriodoDe(prazo, hoje, dias);
  pedido.por = por;
  pedido.coluna = coluna;
  pedido.tipos = tipos;
  Filtra(pedido, filtros);
  return pedido;
}

Escolha Escolha::De(const Pedido& pedido) {
  Escolha escolha;
  escolha.prazo = Prazo::kDias;
  escolha.dias = pedido.periodo;
  escolha.por = pedido.por;
  escolha.coluna = pedido.coluna;
  escolha.tipos = pedido.tipos;
  escolha.filtros = FiltrosDe(pedido);
  return escolha;
}

std::string Escolha::Guardada() const {
  std::string texto = Prazos()[static_cast<std::size_t>(prazo)].chave;
  texto += std::string(" ") + TextosDe(por).chave + " ";
  texto += PalavrasDeColuna()[static_cast<std::size_t>(coluna)].chave;
  if (prazo == Prazo::kDias) texto += " " + TextoDoDia(dias.de) + " " + TextoDoDia(dias.ate);
  return texto;
}

void Escolha::Repoe(const std::string& guardada) {
  std::istringstream palavras(guardada);
  std::string doPrazo, doGrupo, daColuna, de, ate;
  palavras >> doPrazo >> doGrupo >> daColuna >> de >> ate;
  Date primeiro, ultimo;
  const bool comDias = Date::TryParse(de, primeiro) && Date::TryParse(ate, ultimo) && primeiro <= ultimo;
  if (comDias) dias = {primeiro.days(), ultimo.days()};
  for (const PalavraDePrazo& palavra : Prazos())
    if (doPrazo == palavra.chave && (comDias || palavra.prazo != Prazo::kDias)) prazo = palavra.prazo;
  for (const PalavraDeGrupo& palavra : Grupos())
    if (doGrupo == palavra.chave) por = palavra.por;
  for (const PalavraDeColuna& palavra : PalavrasDeColuna())
    if (daColuna == palavra.chave) coluna = palavra.coluna;
}

}  // namespace reports
