#include "masterdata/code_table_list.h"

#include "masterdata/code_table_form.h"
#include "masterdata/tipos_gastos_form.h"

namespace zorCrmParvel {
namespace {

template <typename T>
std::unique_ptr<CodeTable> Entidade() {
  return std::make_unique<T>();
}

template <typename T>
std::unique_ptr<Ficha> NovaFicha() {
  return std::make_unique<T>();
}

template <typename Entity, typename Form>
constexpr ListaDeCodigos Lista(const char* titulo) {
  return {titulo, &Entidade<Entity>, &NovaFicha<Form>};
}

}  // namespace

constexpr ListaDeCodigos kListaDeCategorias = Lista<clCategorias, Categorias>("Categorias");
constexpr ListaDeCodigos kListaDeCompanhias = Lista<clCompanhias, Companhias>("Companhias");
constexpr ListaDeCodigos kListaDeDepartamentos = Lista<clDepartamentos, Departamentos>("Departamentos");
constexpr ListaDeCodigos kListaDeMarcas = Lista<clMarcas, Marcas>("Marcas");
constexpr ListaDeCodigos kListaDeModelos = Lista<clModelos, Modelos>("Modelos");
constexpr ListaDeCodigos kListaDeTiposAcessorios =
    Lista<clTiposAcessorios, TiposAcessorios>("Tipos de Acessórios");
constexpr ListaDeCodigos kListaDeTiposGastos = Lista<clTiposGastos, TiposGastos>("Tipos de Gastos");
constexpr ListaDeCodigos kListaDeTiposManut = Lista<clTiposManut, TiposManut>("Tipos de Revisão");
constexpr ListaDeCodigos kListaDeTiposSeguro = Lista<clTiposSeguros, TiposSeguro>("Tipos de Apólice");
constexpr ListaDeCodigos kListaDeViagens = Lista<clViagens, Viagens>("Viagens");

RecordsetRef CodeTableList::AbrirLinhas() {
  const Piece tabela = fixed(lista_.entidade()->tabela());
  RecordsetRef linhas;
  mybd->AbrirLeitura("",
                     {" SELECT ", tabela, ".Codigo AS Codigo, ", tabela, ".Nome AS Nome", " from ", tabela,
                      " ", " Order by ", tabela, ".Codigo"},
                     linhas);
  return linhas;
}

const std::vector<ColunaDeLista>& CodeTableList::Colunas() const {
  static const std::vector<ColunaDeLista> colunas = {{"Codigo", 2500, "Código"},
                                                     {"Nome", 4500, "Designação"}};
  return colunas;
}

std::unique_ptr<Ficha> CodeTableList::FichaNova() { return Pronta(lista_.ficha()); }

std::unique_ptr<Ficha> CodeTableList::FichaDe(const std::string& codigo, const GridRow& /*row*/) {
  auto ficha = Pronta(lista_.ficha());
  ficha->CarregaFicha(codigo);
  return ficha;
}

void CodeTableList::AnularRegisto(const std::string& codigo) {
  const auto entidade = lista_.entidade();
  entidade->bd = mybd;
  entidade->Codigo = codigo;
  entidade->Anular();
}

}  // namespace zorCrmParvel
