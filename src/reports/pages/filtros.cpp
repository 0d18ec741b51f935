#include "reports/pages/filtros.h"

#include <algorithm>
#include <cstdlib>

#include "reports/leitor.h"

namespace reports {
namespace {

using zorCrmParvel::DataAccessRef;

constexpr const char* kServico = "servico";
constexpr const char* kCombustivel = "combustivel";
constexpr const char* kActivas = "1";

/// A filter whose values stand in a table, and where their codes go.
struct Tabelado {
  const char* chave;
  const char* titulo;
  const char* statement;
  std::vector<std::string> Pedido::*codigos;
};

constexpr Tabelado kTabelados[] = {
    {"viatura", "Viaturas", "SELECT Matricula, Modelo FROM zor_PV_Viaturas ORDER BY Matricula",
     &Pedido::viaturas},
    {"departamento", "Departamentos", "SELECT Codigo, Nome FROM zor_PV_Departamentos ORDER BY Codigo",
     &Pedido::departamentos},
    {"categoria", "Categorias", "SELECT Codigo, Nome FROM zor_PV_Categorias ORDER BY Codigo",
     &Pedido::categorias},
    {"marca", "Marcas", "SELECT Codigo, Nome FROM zor_PV_Marcas ORDER BY Codigo", &Pedido::marcas},
    {"motorista", "Motoristas", "SELECT Codigo, Nome FROM zor_Funcionarios ORDER BY Codigo",
     &Pedido::motoristas},
};

const std::vector<std::string>& De(const Escolhidos& escolhidos, const char* chave) {
  static const std::vector<std::string> kNenhum;
  const auto achado = escolhidos.find(chave);
  return achado == escolhidos.end() ? kNenhum : achado->second;
}

}  // namespace

std::vector<Filtro> LerFiltros(const DataAccessRef& bd, TipoDeRelatorio tipo) {
  std::vector<Filtro> filtros;
  for (const Tabelado& tabelado : kTabelados) {
    if (tabelado.codigos == &Pedido::motoristas && !TextosDe(tipo).motoristas) continue;
    Filtro filtro{tabelado.chave, tabelado.titulo, {}};
    Leitor rs(bd, tabelado.statement);
    while (rs.Avanca()) filtro.opcoes.push_back({rs.Copia(0), rs.Copia(1)});
    if (!filtro.opcoes.empty()) filtros.push_back(std::move(filtro));
  }
  filtros.push_back(
      {kCombustivel, "Combustíveis", {{"0", "Diesel"}, {"1", "Gasolina"}, {"2", "GPL"}, {"3", "Eléctrico"}}});
  filtros.push_back({kServico, "Serviço", {{kActivas, "Ao serviço"}, {"0", "Fora de serviço"}}});
  return filtros;
}

void Filtra(Pedido& pedido, const Escolhidos& escolhidos) {
  for (const Tabelado& tabelado : kTabelados) pedido.*tabelado.codigos = De(escolhidos, tabelado.chave);
  pedido.combustiveis.clear();
  for (const std::string& codigo : De(escolhidos, kCombustivel))
    pedido.combustiveis.push_back(std::atoi(codigo.c_str()));
  const auto& servico = De(escolhidos, kServico);
  const bool umSo = servico.size() == 1;  // both let everything through
  pedido.soActivas = umSo && servico.front() == kActivas;
  pedido.soInactivas = umSo && servico.front() != kActivas;
}

Escolhidos FiltrosDe(const Pedido& pedido) {
  Escolhidos escolhidos;
  for (const Tabelado& tabelado : kTabelados)
    if (!(pedido.*tabelado.codigos).empty()) escolhidos[tabelado.chave] = pedido.*tabelado.codigos;
  for (const int combustivel : pedido.combustiveis)
    escolhidos[kCombustivel].push_back(std::to_string(combustivel));
  if (pedido.soActivas || pedido.soInactivas) escolhidos[kServico] = {pedido.soActivas ? kActivas : "0"};
  return escolhidos;
}

}  // namespace reports
