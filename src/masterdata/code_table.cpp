#include "masterdata/code_table.h"

#include "host/one_row.h"
#include "platform/screen/dialogs.h"

namespace zorCrmParvel {

Statement CodeTable::Seleccao() const {
  return {"SELECT Codigo, Nome", " From ", fixed(tabela()), " WHERE     (Codigo = N'", value(Codigo), "')"};
}

bool CodeTable::Ler() {
  const bool found = LerLinha(bd, Seleccao(), [this](const Row& row) { Descrição = row.text("Nome"); });
  if (!found) Descrição.clear();
  return found;
}

bool CodeTable::Navegar(const Statement& statement) {
  const bool found = LerLinha(bd, statement, [this](const Row& row) {
    Codigo = row.text("Codigo");
    Descrição = row.text("Nome");
  });
  if (!found) Descrição.clear();
  return found;
}

bool CodeTable::LerPrimeiro() {
  return Navegar({"SELECT Top 1 Codigo, Nome", " From ", fixed(tabela()), " WHERE     (Codigo > '')",
                  " order by Codigo "});
}

bool CodeTable::LerAnterior() {
  return Navegar({"SELECT Top 1 Codigo, Nome", " From ", fixed(tabela()), " WHERE     (Codigo < '",
                  value(Codigo), "')", " order by Codigo desc"});
}

bool CodeTable::LerProximo() {
  return Navegar({"SELECT Top 1 Codigo, Nome", " From ", fixed(tabela()), " WHERE     (Codigo > '",
                  value(Codigo), "')", " order by Codigo"});
}

bool CodeTable::LerUltimo() {
  return Navegar({"SELECT Top 1 Codigo, Nome", " From ", fixed(tabela()),
                  " WHERE     (Codigo < 'zzzzzzzzzzzz')", " order by Codigo desc"});
}

bool CodeTable::Escrever() {
  EscreverLinha(bd, Seleccao(), "Codigo", Codigo, [this](Row& row) { EscreverCampos(row); });
  return true;
}

void CodeTable::EscreverCampos(Row& row) const { row.cut("Nome", Descrição); }

bool CodeTable::Anular() {
  return Remover(bd, {"Delete  From ", fixed(tabela()), " ", " WHERE (Codigo ='", value(Codigo), "' )"});
}

platform::Ref<platform::Connection> CodeTable::Ligacao() const {
  platform::Ref<platform::Connection> ligacao;
  bd->ObterLigacao(ligacao);
  return ligacao;
}

std::string CodeTable::MostraLista() {
  platform::ListaPesquisa lista;
  lista.Ligacao = Ligacao();
  lista.Titulo = tabela_.tituloLista;
  lista.Sql = std::string("SELECT Codigo as Código, Nome From ") + tabela() + " ORDER BY Codigo";
  lista.Carrega();
  lista.Largura = 4500;
  lista.Coluna(1).Width = 1000;
  lista.Coluna(2).Width = tabela_.larguraNome;
  return tabela_.escolheCodigo ? lista.EscolheCodigo() : lista.Escolhe();
}

bool CodeTable::MostraMapa() {
  platform::MapaListagem mapa;
  mapa.Ligacao = Ligacao();
  mapa.Opcao = 0;
  mapa.Titulo = tabela_.tituloMapa;
  mapa.Sql = std::string("SELECT Codigo AS Código, Nome AS Nome FROM ") + tabela() + " order by Codigo";
  mapa.Carrega();
  mapa.Coluna(1).Width = 2000;
  mapa.Coluna(2).Width = 5000;
  mapa.Mostra();
  return false;
}

constexpr TabelaDeCodigos kTabelaDeCategorias{"zor_PV_Categorias", "Categorias", "Listagem de Categorias",
                                              true};
constexpr TabelaDeCodigos kTabelaDeCompanhias{"zor_PV_Companhias", "Companhias", "Listagem de Companhias",
                                              true};
// The departments are printed under the title of the insurance types; offices know the report by it.
constexpr TabelaDeCodigos kTabelaDeDepartamentos{"zor_PV_Departamentos", "Departamentos",
                                                 "Listagem de Tipos de Seguro", true};
constexpr TabelaDeCodigos kTabelaDeMarcas{"zor_PV_Marcas", "Marcas", "Listagem de Marcas", true};
constexpr TabelaDeCodigos kTabelaDeModelos{"zor_PV_Modelos", "Modelos", "Listagem de Modelos", true};
constexpr TabelaDeCodigos kTabelaDeTiposAcessorios{"zor_PV_TiposAcessorios", "Tipos de Acessórios",
                                                   "Listagem de Tipos de Acessórios"};
constexpr TabelaDeCodigos kTabelaDeTiposManut{"zor_PV_TiposManut", "Tipos de Revisões",
                                              "Listagem de Tipos de Manutenção"};
constexpr TabelaDeCodigos kTabelaDeTiposSeguro{"zor_PV_TiposSeguro", "Tipos de Seguro",
                                               "Listagem de Tipos de Seguro"};
constexpr TabelaDeCodigos kTabelaDeViagens{"zor_PV_Viagens", "Viagens", "Listagem de Viagens", false, 3500};

}  // namespace zorCrmParvel
