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

constexpr auto kCategorias = Lista<clCategorias, Categorias>("Categorias");
constexpr auto kCompanhias = Lista<clCompanhias, Companhias>("Companhias");
constexpr auto kDepartamentos = Lista<clDepartamentos, Departamentos>("Departamentos");
constexpr auto kMarcas = Lista<clMarcas, Marcas>("Marcas");
constexpr auto kModelos = Lista<clModelos, Modelos>("Modelos");
constexpr auto kTiposAcessorios = Lista<clTiposAcessorios, TiposAcessorios>("Tipos de Acessórios");
constexpr auto kTiposGastos = Lista<clTiposGastos, TiposGastos>("Tipos de Gastos");
constexpr auto kTiposManut = Lista<clTiposManut, TiposManut>("Tipos de Revisão");
constexpr auto kTiposSeguro = Lista<clTiposSeguros, TiposSeguro>("Tipos de Apólice");
constexpr auto kViagens = Lista<clViagens, Viagens>("Viagens");

}  // namespace

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

VwLstCategorias::VwLstCategorias() : CodeTableList(kCategorias) {}
VwLstCompanhias::VwLstCompanhias() : CodeTableList(kCompanhias) {}
VwLstDepartamentos::VwLstDepartamentos() : CodeTableList(kDepartamentos) {}
VwLstMarcas::VwLstMarcas() : CodeTableList(kMarcas) {}
VwLstModelos::VwLstModelos() : CodeTableList(kModelos) {}
VwLstTiposAcessorios::VwLstTiposAcessorios() : CodeTableList(kTiposAcessorios) {}
VwLstTiposGastos::VwLstTiposGastos() : CodeTableList(kTiposGastos) {}
VwLstTiposManut::VwLstTiposManut() : CodeTableList(kTiposManut) {}
VwLstTiposSeguro::VwLstTiposSeguro() : CodeTableList(kTiposSeguro) {}
VwLstViagens::VwLstViagens() : CodeTableList(kViagens) {}

}  // namespace zorCrmParvel
