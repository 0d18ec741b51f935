#include "reports/pages/resultado.h"

#include <algorithm>
#include <string_view>

#include "reports/custos.h"

namespace reports {
namespace {

/// A total that stands in words: amounts with what they count, from the columns that are worth telling.
std::string Contado(const Tabela& tabela, const LinhaDaTabela& linha, const std::string& unidadeDoTotal) {
  struct Palavra {
    const char* chave;
    const char* depois;  // null: the unit of the row
  };
  static constexpr Palavra kPalavras[] = {
      {"movimentos", "movimentos"}, {"litros", nullptr},      {"distancia", "km"},
      {"l100", "aos 100 km"},       {"eur_km", "€/km"},       {"custo", "€"},
      {"total", nullptr},           {"anterior", "antes"},    {"diferenca", "de diferença"},
      {"percentagem", "%"},         {"sem_data", "sem data"},
  };
  std::string texto;
  for (const Palavra& palavra : kPalavras) {
    const std::string valor = TextoDaChave(tabela, linha, palavra.chave);
    if (valor.empty() || valor == "0" || valor == "0,00") continue;
    std::string unidade = unidadeDoTotal;
    if (palavra.depois != nullptr)
      unidade = palavra.depois;
    else if (std::string_view(palavra.chave) == "litros")
      unidade = TextoDaChave(tabela, linha, "unidade");
    if (!texto.empty()) texto += " · ";
    texto += valor;
    if (!unidade.empty()) texto.append(" ").append(unidade);
  }
  return texto;
}

/// Narrows a request to the key of a group.
void Estreita(Pedido& pedido, Por por, const std::string& chave) {
  switch (por) {
    case Por::kViatura:
      pedido.viaturas = {chave};
      break;
    case Por::kDepartamento:
      pedido.departamentos = {chave};
      break;
    case Por::kCategoria:
      pedido.categorias = {chave};
      break;
    case Por::kMarca:
      pedido.marcas = {chave};
      break;
    case Por::kMotorista:
      pedido.motoristas = {chave};
      break;
    case Por::kTipo:
      pedido.tipos = {chave};
      break;
  }
}

bool TemMovimentos(const Resultado& resultado, const LinhaDaTabela& linha, const Tabela& tabela) {
  return resultado.pedido.por != Por::kTipo || TextoDaChave(tabela, linha, "chave") != kRendas;
}

}  // namespace

Resultado Calcular(const zorCrmParvel::DataAccessRef& bd, TipoDeRelatorio tipo, const Pedido& pedido,
                   bool vistos) {
  Necessidade necessidade = NecessidadeDe(tipo, pedido);
  necessidade.tipos = true;  // for the chart
  Resultado resultado{tipo, pedido, nullptr, {}};
  resultado.relatorio = Fazer(bd, tipo, pedido, necessidade, vistos, resultado.frota);
  return resultado;
}

std::vector<std::size_t> TabelasMostradas(const Resultado& resultado) {
  const auto& tabelas = resultado.relatorio.tabelas;
  std::vector<std::size_t> mostradas;
  for (std::size_t i = 0; i < tabelas.size(); ++i)
    if (!tabelas[i].umSo && tabelas[i].nome != "totais" && (i == 0 || tabelas[i].Quantas() > 0))
      mostradas.push_back(i);
  const bool comGrupos = mostradas.size() > 1 && tabelas[mostradas[1]].nome == "grupos";
  if (comGrupos) std::swap(mostradas[0], mostradas[1]);
  return mostradas;
}

std::vector<std::string> Totais(const Resultado& resultado) {
  const bool deKm = resultado.tipo == TipoDeRelatorio::kQuilometros;
  const char* const unidade = deKm ? "km" : resultado.tipo == TipoDeRelatorio::kEmissoes ? "kg" : "€";
  std::vector<std::string> totais;
  for (const Tabela& tabela : resultado.relatorio.tabelas) {
    if (!tabela.umSo && tabela.nome != "totais") continue;
    for (std::size_t i = 0; i < tabela.Quantas(); ++i) {
      const LinhaDaTabela linha = tabela.Linha(i);
      const std::string tipo = TextoDaChave(tabela, linha, "tipo");
      totais.push_back((tipo.empty() ? "Total" : tipo) + ": " + Contado(tabela, linha, unidade));
    }
  }
  return totais;
}

std::optional<MaisPerto> DentroDa(const Resultado& resultado, std::size_t tabela,
                                  const LinhaDaTabela& linha) {
  const Tabela& t = resultado.relatorio.tabelas[tabela];
  if (linha.alvo.especie || !TemMovimentos(resultado, linha, t)) return {};
  MaisPerto dentro{TipoDeRelatorio::kMovimentos, resultado.pedido, {}};
  const std::string tipo = TextoDaChave(t, linha, "tipo");
  dentro.pedido.cancelar = nullptr;
  dentro.pedido.por = Por::kViatura;
  if (!linha.alvo.matricula.empty()) {
    Estreita(dentro.pedido, Por::kViatura, linha.alvo.matricula);
    if (resultado.tipo == TipoDeRelatorio::kConsumos && !tipo.empty())
      dentro.pedido.tipos = {"gastos:" + tipo};
    dentro.titulo = "Movimentos de " + linha.alvo.matricula;
    return dentro;
  }
  const bool gastos =
      resultado.tipo == TipoDeRelatorio::kConsumos || resultado.tipo == TipoDeRelatorio::kEmissoes;
  const std::string chave = std::get<std::string>(linha.celulas.front());
  const bool porTipo = resultado.pedido.por == Por::kTipo;
  if (resultado.tipo == TipoDeRelatorio::kConsumos && !porTipo) {
    dentro.tipo = TipoDeRelatorio::kConsumos;  // from group to vehicles
    Estreita(dentro.pedido, resultado.pedido.por, chave);
  } else {
    Estreita(dentro.pedido, resultado.pedido.por, porTipo && gastos ? "gastos:" + chave : chave);
  }
  dentro.titulo = std::string(TextosDe(dentro.tipo).titulo) + ": " +
                  (chave.empty() ? std::string("sem ") + TextosDe(resultado.pedido.por).chave : chave);
  return dentro;
}

}  // namespace reports
