#include "events/acessorios_form.h"

#include "events/cost_sums.h"
#include "host/tools.h"
#include "platform/format.h"
#include "platform/host.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {
namespace {

using platform::Currency;
using platform::Date;
using platform::zor_input;

enum Indice : int { kMatricula, kTipoAcessorio, kModelo, kObs, kMarca, kQtd, kKmFinal, kKmInicial, kCusto };
enum Rotulo : int { kPercurso = 12, kCustoPorKm = 13 };

const TextosDoEvento kTextos{
    .nome = "Acessorios",
    .legenda = "Acessórios",
    .perguntaAnular = "Vai proceder à anulação do Acessório!",
    .dicaLista = "Lista de Acessórios.",
    .classeArquivo = 308,
    .listaViaturas = 2,
    .tituloMarca = 8,
    .adopcao = Adopcao::kSeExiste,
};

std::vector<Referencia> Referencias() {
  return {{.campo = kTipoAcessorio,
           .lista = 1,
           .titulo = 7,
           .dicaLista = "Lista de Tipos de Acessórios.",
           .ficha = "TiposAcessorios",
           .nova = &NovaEntidade<clTiposAcessorios>,
           .inexistente = "Tipo Acessório não existente!",
           .caixaSimples = true}};
}

}  // namespace

Acessorios::Acessorios()
    : EventForm(kTextos, std::make_unique<clAcessorios>(), Referencias()), DTPicker2(*this, "DTPicker2") {
  const auto km = zor_input::kInteiro;
  Linha({{kMatricula, "Matrícula", "Matrícula da Viatura.", 10}});
  LinhaDaData(DTPicker1, "Data", "Data da aquisicão.");
  Linha({{kTipoAcessorio, "Tipo Acessório", "Tipo de Acessório.", 10}});
  Linha({{kMarca, "Marca", "Marca.", 25}, {kModelo, "Modelo", "Modelo.", 25}});
  Linha({{kQtd, "Qtd.", "Quantidade.", 10, zor_input::kNumero, "###,###.#0"},
         {kCusto, "Custo", "Custo do Acessório.", 10, zor_input::kNumero, "###,###.#0"}});
  Linha({{kKmInicial, "Km Iniciais", "Km Iniciais.", 10, km, "###,##0"},
         {kKmFinal, "Km Finais", "Km Finais.", 10, km, "###,##0"}});
  LinhaDaData(DTPicker2, "Data Validade", "Próxima data de descarga.");
  DTPicker2.Optional = true;
  Linha({{kObs, "Observações", "Obs.", 150}});
  Campo[kObs].tipo_campo = 1;
  for (int rotulo : {kPercurso, kCustoPorKm}) {
    Titulo.Add(*this, "Titulo", rotulo);
    layout.head.rows.push_back({{.description = &Titulo[rotulo]}});
  }
}

void Acessorios::GuardarDaViatura(const clViaturas& viatura) { kmActual_ = viatura.KmActual; }

void Acessorios::MostrarCampos() {
  Campo[kTipoAcessorio].Text = acessorio().TipoAcessorio;
  Campo[kModelo].Text = acessorio().Modelo;
  Campo[kObs].Text = acessorio().Obs;
  Campo[kMarca].Text = acessorio().Marca;
  Campo[kQtd].Text = acessorio().Qtd.ToText();
  Campo[kKmFinal].Text = acessorio().KmFinal.ToText();
  Campo[kKmInicial].Text = acessorio().KmInicial.ToText();
  Campo[kCusto].Text = acessorio().Custo.ToText();
  DTPicker2.Value = acessorio().DataVal.IsZero() ? DataDoDia() : acessorio().DataVal;
  MostrarPercurso();
}

void Acessorios::MostrarPercurso() {
  const bool semFim = Campo[kKmFinal].Text.empty();
  const Currency fim = semFim ? kmActual_ : Tools::TextoParaMoeda(Campo[kKmFinal]);
  const Currency percurso = fim - Tools::TextoParaMoeda(Campo[kKmInicial]);
  const Currency custo = Tools::TextoParaMoeda(Campo[kCusto]);
  const bool inteiro = percurso == 0 || (semFim && percurso < 0);
  const double porKm = inteiro ? custo.ToDouble() : platform::Divide(custo.ToDouble(), percurso.ToDouble());
  Titulo[kPercurso].Caption = "Acessório com " + platform::Format(percurso, "###,##0") + " Km";
  Titulo[kCustoPorKm].Caption = "Custo/Km " + platform::Format(porKm, "#,##0.00") + " €";
}

void Acessorios::LevarCampos() {
  acessorio().TipoAcessorio = Campo[kTipoAcessorio].Text;
  acessorio().Obs = Campo[kObs].Text;
  acessorio().Marca = Campo[kMarca].Text;
  acessorio().Modelo = Campo[kModelo].Text;
  acessorio().Qtd = Tools::TextoParaMoeda(Campo[kQtd]);
  acessorio().KmInicial = Tools::TextoParaMoeda(Campo[kKmInicial]);
  acessorio().KmFinal = Tools::TextoParaMoeda(Campo[kKmFinal]);
  acessorio().Custo = Tools::TextoParaMoeda(Campo[kCusto]);
  acessorio().DataVal = DTPicker2.Value.IsNull() ? Date() : DTPicker2.Value.ToDate();
}

void Acessorios::Limparform() {
  EventForm::Limparform();
  DTPicker2.Value = DataDoDia();
}

void Acessorios::DepoisDeGravar() {
  const std::string& matricula = Campo[kMatricula].Text;
  GuardarCustoTotal(mybd, matricula, Tools::SomaCustoSemRevisoes(mybd, matricula));
  if (TipoMostrar == 1) LimparParaOMesmoVeiculo();
}

void Acessorios::DepoisDeAnular() {
  // From the list nothing is on the screen: the vehicle is the one that was named.
  const std::string& matricula = Campo[kMatricula].Text.empty() ? Matricula : Campo[kMatricula].Text;
  GuardarCustoTotal(mybd, matricula, Tools::SomaCustoSemRevisoes(mybd, Matricula));
}

}  // namespace zorCrmParvel
