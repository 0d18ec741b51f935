#include "reports/definicoes.h"

#include <algorithm>

#include "platform/format.h"
#include "platform/host.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace reports {
namespace {

using platform::Variant;
using zorCrmParvel::DataAccessRef;
using zorCrmParvel::fixed;
using zorCrmParvel::RecordsetRef;
using zorCrmParvel::Statement;
using zorCrmParvel::value;
using Campo = Definicao::Campo;
using Genero = Definicao::Campo::Genero;

constexpr const char* kVistos = "parvel_Vistos";

[[noreturn]] void Recusa(const std::string& texto) {
  throw platform::RuntimeError(platform::kInvalidCall, "definições", texto);
}

/// A text as the value of a column.
Variant Lido(const Campo& campo, const std::string& texto) {
  if (texto.empty()) return Variant::Null{};
  try {
    switch (campo.tipo) {
      case Genero::kTexto:
        return texto;
      case Genero::kInteiro:
        return platform::ToInteger(platform::ParseWhole(texto));
      case Genero::kNumero:
        return Currency::Parse(texto);
      case Genero::kData:
        break;
    }
    return Date::Parse(texto);
  } catch (const platform::RuntimeError&) {
    Recusa(
        std::string("«") + texto + "» não serve para " + campo.nome + ": " +
        (campo.tipo == Genero::kData ? "escreva uma data, por exemplo 31-12-2026." : "escreva um número."));
  }
}

/// A key as it stands in a statement.
std::string NoTexto(const Campo& campo, const std::string& texto) {
  const Variant lido = Lido(campo, texto);
  if (lido.IsNull()) Recusa(std::string("Falta ") + campo.nome + ".");
  return campo.tipo == Genero::kData ? platform::FormatDate(lido.ToDate(), "yyyy.mm.dd") : lido.ToText();
}

Statement ComChaves(Statement s, const Definicao& definicao, const std::vector<std::string>& chaves) {
  if (chaves.size() != definicao.chaves.size()) {
    std::string nomes;
    for (const Campo& campo : definicao.chaves)
      nomes += (nomes.empty() ? "" : ", ") + std::string(campo.nome);
    Recusa(std::string("A definição ") + definicao.chave + " precisa de: " + nomes + ".");
  }
  for (std::size_t i = 0; i < chaves.size(); ++i) {
    const std::string texto = NoTexto(definicao.chaves[i], chaves[i]);
    s << (i == 0 ? " WHERE " : " AND ") << fixed(definicao.chaves[i].coluna)
      << (definicao.chaves[i].tipo == Genero::kTexto ? "=N'" : "='") << value(texto) << "'";
  }
  return s;
}

const Campo& CampoDe(const Definicao& definicao, const std::string& coluna) {
  std::string nomes;
  for (const Campo& campo : definicao.valores) {
    if (platform::EqualsIgnoringCase(campo.coluna, coluna)) return campo;
    nomes += (nomes.empty() ? "" : ", ") + std::string(campo.coluna);
  }
  Recusa("A definição " + std::string(definicao.chave) + " não tem «" + coluna + "». Tem: " + nomes + ".");
}

Formato FormatoDe(Genero tipo) {
  switch (tipo) {
    case Genero::kTexto:
      return Formato::kTexto;
    case Genero::kInteiro:
      return Formato::kInteiro;
    case Genero::kNumero:
      return Formato::kPorUnidade;
    case Genero::kData:
      break;
  }
  return Formato::kData;
}

Celula CelulaDe(const Variant& valor) {
  if (valor.IsNull()) return {};
  if (const auto* texto = valor.As<std::string>()) return *texto;
  if (const auto* data = valor.As<Date>()) return *data;
  if (const auto* numero = valor.As<Currency>()) return *numero;
  return std::int64_t{valor.ToLong()};
}

/// Refuses a rule that there is not.
void Confere(const Definicao& definicao, const std::vector<std::string>& chaves) {
  if (std::string_view(definicao.tabela) != "parvel_Regras") return;
  std::string regras;
  for (std::size_t i = 0; i < kRegras; ++i) {
    const char* const regra = TextosDe(static_cast<Regra>(i)).chave;
    if (chaves[0] == regra) return;
    regras += (regras.empty() ? "" : ", ") + std::string(regra);
  }
  Recusa("Não há a regra «" + chaves[0] + "». Há: " + regras + ".");
}

}  // namespace

const std::vector<Definicao>& Definicoes() {
  static const std::vector<Definicao> kDefinicoes = {
      {"viaturas",
       "Depósito, saída de serviço e leasing de cada viatura",
       "parvel_Viaturas",
       {{"Matricula", "a matrícula"}},
       {{"Deposito", "o depósito", Genero::kNumero},
        {"ForaDeServico", "o dia da saída de serviço", Genero::kData},
        {"LimiteKm", "o limite de km do contrato", Genero::kNumero},
        {"InicioLeasing", "o início do contrato", Genero::kData},
        {"EurosKm", "o preço de cada km a mais", Genero::kNumero}}},
      {"unidades",
       "Unidade das quantidades de cada tipo de gasto",
       "parvel_TiposGastos",
       {{"TipoGasto", "o tipo de gasto"}},
       {{"Unidade", "a unidade"}}},
      {"co2",
       "kg de CO2 por unidade de cada tipo de gasto, a partir de uma data",
       "parvel_FactoresCO2",
       {{"TipoGasto", "o tipo de gasto"}, {"Desde", "a data", Genero::kData}},
       {{"Kg", "os kg de CO2", Genero::kNumero}}},
      {"aceites",
       "Tipos de gasto que as viaturas de cada combustível levam (0 Diesel, 1 Gasolina, 2 GPL, 3 Eléctrico)",
       "parvel_TiposAceites",
       {{"Combustivel", "o combustível", Genero::kInteiro}, {"TipoGasto", "o tipo de gasto"}},
       {}},
      {"classes",
       "Classe da carta que as viaturas de cada categoria pedem, pelo seu número",
       "parvel_ClassesCategorias",
       {{"Categoria", "a categoria"}},
       {{"Classe", "a classe", Genero::kInteiro}}},
      {"regras",
       "Regras das excepções: se estão activas, e o limiar",
       "parvel_Regras",
       {{"Regra", "a regra"}},
       {{"Activa", "se está activa", Genero::kInteiro}, {"Limiar", "o limiar", Genero::kNumero}}}};
  return kDefinicoes;
}

std::string TituloDe(const Definicao::Campo& campo) {
  std::string titulo = campo.nome;
  for (const char* artigo : {"a ", "o ", "os ", "se está "})
    if (titulo.rfind(artigo, 0) == 0) {
      titulo.erase(0, std::string_view(artigo).size());
      break;
    }
  if (!titulo.empty() && titulo[0] >= 'a' && titulo[0] <= 'z')
    titulo[0] = static_cast<char>(titulo[0] - 'a' + 'A');
  return titulo;
}

const Definicao* DefinicaoDe(const std::string& chave) {
  const auto& todas = Definicoes();
  const auto achada =
      std::find_if(todas.begin(), todas.end(), [&](const Definicao& d) { return d.chave == chave; });
  return achada == todas.end() ? nullptr : &*achada;
}

Tabela Ver(const DataAccessRef& bd, const Definicao& definicao) {
  Tabela tabela;
  tabela.nome = "linhas";
  Statement s{"SELECT "};
  std::string ordem;
  for (const auto* campos : {&definicao.chaves, &definicao.valores})
    for (const Campo& campo : *campos) {
      s << (tabela.colunas.empty() ? "" : ", ") << fixed(campo.coluna);
      tabela.colunas.push_back({campo.coluna, campo.coluna, FormatoDe(campo.tipo)});
    }
  for (const Campo& campo : definicao.chaves)
    ordem += (ordem.empty() ? "" : ", ") + std::string(campo.coluna);
  s << " FROM " << fixed(definicao.tabela) << " ORDER BY " << fixed(ordem);
  RecordsetRef rs;
  bd->AbrirLeitura("", s, rs);
  for (; !rs->Eof(); rs->MoveNext()) {
    LinhaDaTabela linha;
    for (std::size_t i = 0; i < tabela.colunas.size(); ++i)
      linha.celulas.push_back(CelulaDe(rs->Fields(i).Value()));
    tabela.linhas.push_back(std::move(linha));
  }
  return tabela;
}

void Gravar(const DataAccessRef& bd, const Definicao& definicao, const std::vector<std::string>& chaves,
            const std::map<std::string, std::string>& valores) {
  const Statement s = ComChaves({"SELECT * FROM ", fixed(definicao.tabela)}, definicao, chaves);
  Confere(definicao, chaves);
  std::vector<std::pair<const char*, Variant>> lidos;
  for (const auto& [coluna, texto] : valores) {
    const Campo& campo = CampoDe(definicao, coluna);
    lidos.emplace_back(campo.coluna, Lido(campo, texto));
  }
  RecordsetRef rs;
  bd->AbrirEdicao(s, rs);
  if (rs->Eof()) {
    rs->AddNew();
    for (std::size_t i = 0; i < chaves.size(); ++i)
      rs->Fields(definicao.chaves[i].coluna).SetValue(Lido(definicao.chaves[i], chaves[i]));
  }
  for (auto& [coluna, valor] : lidos) rs->Fields(coluna).SetValue(valor);
  rs->Update();
  rs->Close();
}

void Remover(const DataAccessRef& bd, const Definicao& definicao, const std::vector<std::string>& chaves) {
  bd->ExecutarSql("", ComChaves({"DELETE FROM ", fixed(definicao.tabela)}, definicao, chaves));
}

void MarcarVisto(const DataAccessRef& bd, const std::string& regra, const std::string& tabela,
                 std::int32_t id, const std::string& nota) {
  RecordsetRef rs;
  bd->AbrirEdicao({"SELECT * FROM ", fixed(kVistos), " WHERE Regra=N'", value(regra), "' AND Tabela=N'",
                   value(tabela), "' AND Registo=", value(std::int64_t{id})},
                  rs);
  if (rs->Eof()) {
    rs->AddNew();
    rs->Fields("Regra").SetValue(regra);
    rs->Fields("Tabela").SetValue(tabela);
    rs->Fields("Registo").SetValue(id);
  }
  rs->Fields("Nota").SetValue(nota);
  rs->Fields("Data").SetValue(platform::Today());
  rs->Update();
  rs->Close();
}

void DesmarcarVisto(const DataAccessRef& bd, const std::string& regra, const std::string& tabela,
                    std::int32_t id) {
  bd->ExecutarSql("", {"DELETE FROM ", fixed(kVistos), " WHERE Regra=N'", value(regra), "' AND Tabela=N'",
                       value(tabela), "' AND Registo=", value(std::int64_t{id})});
}

}  // namespace reports
