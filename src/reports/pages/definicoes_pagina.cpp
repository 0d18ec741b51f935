#include "reports/pages/definicoes_pagina.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "reports/carregar.h"
#include "reports/leitor.h"

namespace reports {
namespace {

/// Where the keys of a definition come from; null where they are typed.
const char* ChavesDe(const Definicao& definicao) {
  static constexpr std::pair<const char*, const char*> kChaves[] = {
      {"viaturas", "SELECT Matricula FROM zor_PV_Viaturas ORDER BY Matricula"},
      {"unidades", "SELECT Codigo FROM zor_PV_TiposGastos WHERE Combustivel=1 ORDER BY Codigo"},
      {"classes", "SELECT Codigo FROM zor_PV_Categorias ORDER BY Codigo"}};
  for (const auto& [chave, statement] : kChaves)
    if (std::string_view(definicao.chave) == chave) return statement;
  return nullptr;
}

Tabela Regras(const zorCrmParvel::DataAccessRef& bd) {
  Tabela tabela;
  tabela.nome = "linhas";
  tabela.colunas = {{"Regra", "Regra"},
                    {"explicacao", "O que procura"},
                    {"Activa", "Activa", Formato::kLogico},
                    {"Limiar", "Limiar", Formato::kMedida},
                    {"unidade", "Do limiar"}};
  const Ajustes ajustes = CarregarAjustes(bd);
  for (std::size_t i = 0; i < kRegras; ++i) {
    const TextosDaRegra& textos = TextosDe(static_cast<Regra>(i));
    const bool comLimiar = *textos.limiar != '\0';
    tabela.linhas.push_back({{std::string(textos.chave), std::string(textos.explicacao), ajustes[i].activa,
                              comLimiar ? Celula(ajustes[i].limiar) : Celula(), std::string(textos.limiar)},
                             {}});
  }
  return tabela;
}

}  // namespace

Tabela VerParaEditar(const zorCrmParvel::DataAccessRef& bd, const Definicao& definicao) {
  if (std::string_view(definicao.chave) == "regras") return Regras(bd);
  Tabela tabela = Ver(bd, definicao);
  for (auto& coluna : tabela.colunas)
    for (const auto* campos : {&definicao.chaves, &definicao.valores})
      for (const Definicao::Campo& campo : *campos)
        if (coluna.chave == campo.coluna) coluna.titulo = TituloDe(campo);
  const char* const statement = ChavesDe(definicao);
  if (statement == nullptr) return tabela;
  std::set<std::string> tem;
  for (const LinhaDaTabela& linha : tabela.linhas)
    tem.insert(Dobrado(std::get<std::string>(linha.celulas[0])));
  Leitor rs(bd, statement);
  while (rs.Avanca()) {
    if (tem.count(Dobrado(rs.Texto(0))) != 0) continue;
    LinhaDaTabela linha;
    linha.celulas.resize(tabela.colunas.size());
    linha.celulas[0] = rs.Copia(0);
    tabela.linhas.push_back(std::move(linha));
  }
  std::stable_sort(tabela.linhas.begin(), tabela.linhas.end(), [](const auto& a, const auto& b) {
    return std::get<std::string>(a.celulas[0]) < std::get<std::string>(b.celulas[0]);
  });
  return tabela;
}

std::map<std::string, std::string> Textos(const Tabela& tabela, const LinhaDaTabela& linha) {
  std::map<std::string, std::string> textos;
  for (std::size_t i = 0; i < tabela.colunas.size(); ++i) {
    const Celula& celula = linha.celulas[i];
    if (const auto* valor = std::get_if<Currency>(&celula))
      textos[tabela.colunas[i].chave] = valor->ToText();
    else if (const auto* logico = std::get_if<bool>(&celula))
      textos[tabela.colunas[i].chave] = *logico ? "1" : "0";
    else
      textos[tabela.colunas[i].chave] = TextoDa(celula, tabela.colunas[i].formato);
  }
  return textos;
}

}  // namespace reports
