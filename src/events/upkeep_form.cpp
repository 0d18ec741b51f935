#include "events/upkeep_form.h"

#include "events/cost_sums.h"
#include "host/tools.h"
#include "platform/format.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {
namespace {

using platform::Currency;

/// The ficha of an event that has a type, whose code is in the first field.
FichaDeEvento ComTipo(const TextosDoEvento& textos, int classeArquivo, const char* dicaTipos,
                      const char* fichaTipos, std::unique_ptr<CodeTable> (*novoTipo)(),
                      const char* inexistente) {
  return {.textos = textos,
          .classeArquivo = classeArquivo,
          .listaViaturas = 2,
          .tituloMarca = 8,
          .adopcao = Adopcao::kSeExiste,
          .referencias = {{1, 1, 7, dicaTipos, fichaTipos, novoTipo, inexistente, false, true}}};
}

const FichaDeEvento kRevisoes = ComTipo(
    {"Revisoes", "Revisões", "CarregaRevisao", "Vai proceder à anulação da Revisão!", "Lista de Revisões."},
    301, "Lista de Tipos de Revisões.", "TiposManut", &NovaEntidade<clTiposManut>,
    "Tipo Manutenção não existente!");

const FichaDeEvento kAcessorios = ComTipo({"Acessorios", "Acessórios", "CarregaAcessorio",
                                           "Vai proceder à anulação do Acessório!", "Lista de Acessórios."},
                                          308, "Lista de Tipos de Acessórios.", "TiposAcessorios",
                                          &NovaEntidade<clTiposAcessorios>, "Tipo Acessório não existente!");

const FichaDeEvento kInspecoes{
    .textos = {"Inspecoes", "Inspecções", "CarregaInspecao", "Vai proceder à anulação da Inspecção!",
               "Lista de Inspecções."},
    .classeArquivo = 302,
    .listaViaturas = 1,
    .tituloMarca = 7,
    .adopcao = Adopcao::kSeExiste,
    .esvaziaMarca = true,
    .comecaNaData = true,
};

}  // namespace

FichaDeVisita::FichaDeVisita(const FichaDeEvento& tipo, std::unique_ptr<VisitaDaViatura> visita, Total total)
    : EventForm(tipo, std::move(visita)), total_(total) {
  LinhaDaMatricula();
  LinhaDaData(DTPicker1, "Data", "Data da aquisicão.");
}

void FichaDeVisita::LinhasDaVisita(int km, int custo, int obs) {
  Linha({Inteiro(km, "Km", "Km Iniciais.", visita().Km),
         Numero(custo, "Custo", "Custo do Acessório.", visita().Custo)});
  Linha({Texto(obs, "Observações", "Obs.", 150, visita().Obs)});
}

void FichaDeVisita::DepoisDeGravar() {
  GuardarCustoTotal(mybd, Matricula, total_(mybd, Campo[kMatricula].Text));
  if (TipoMostrar != 1) Limparform();
  Campo[1].SetFocus();
}

void FichaDeVisita::DepoisDeAnular() { GuardarCustoTotal(mybd, Matricula, total_(mybd, Matricula)); }

Revisoes::Revisoes()
    : FichaDeVisita(kRevisoes, std::make_unique<clRevisoes>(), &Tools::SomaCustoComRevisoes) {
  auto& revisao = static_cast<clRevisoes&>(visita());
  Linha({Texto(1, "Tipo Revisão", "Tipo de Acessório.", 10, revisao.TipoManut)});
  LinhasDaVisita(2, 4, 3);
}

Inspecoes::Inspecoes()
    : FichaDeVisita(kInspecoes, std::make_unique<clInspecoes>(), &Tools::SomaCustoSemRevisoes) {
  LinhasDaVisita(1, 2, 3);
}

enum CampoDoAcessorio : int {
  kTipoAcessorio = 1,
  kModelo,
  kObsDoAcessorio,
  kMarca,
  kQtd,
  kKmFinal,
  kKmInicial,
  kCusto
};
enum RotuloDoAcessorio : int { kPercurso = 12, kCustoPorKm = 13 };

Acessorios::Acessorios()
    : EventForm(kAcessorios, std::make_unique<clAcessorios>()), DTPicker2(*this, "DTPicker2") {
  clAcessorios& a = acessorio();
  LinhaDaMatricula();
  LinhaDaData(DTPicker1, "Data", "Data da aquisicão.");
  Linha({Texto(kTipoAcessorio, "Tipo Acessório", "Tipo de Acessório.", 10, a.TipoAcessorio)});
  Linha({Texto(kMarca, "Marca", "Marca.", 25, a.Marca), Texto(kModelo, "Modelo", "Modelo.", 25, a.Modelo)});
  Linha(
      {Numero(kQtd, "Qtd.", "Quantidade.", a.Qtd), Numero(kCusto, "Custo", "Custo do Acessório.", a.Custo)});
  Linha({Inteiro(kKmInicial, "Km Iniciais", "Km Iniciais.", a.KmInicial),
         Inteiro(kKmFinal, "Km Finais", "Km Finais.", a.KmFinal)});
  LinhaDaData(DTPicker2, "Data Validade", "Próxima data de descarga.");
  DTPicker2.Optional = true;
  Linha({Texto(kObsDoAcessorio, "Observações", "Obs.", 150, a.Obs)});
  Campo[kObsDoAcessorio].tipo_campo = 1;
  for (int rotulo : {kPercurso, kCustoPorKm}) {
    Titulo.Add(*this, "Titulo", rotulo);
    layout.head.rows.push_back({{.description = &Titulo[rotulo]}});
  }
}

void Acessorios::GuardarDaViatura(const clViaturas& viatura) { kmActual_ = viatura.KmActual; }

void Acessorios::MostrarCampos() {
  EventForm::MostrarCampos();
  DTPicker2.Value = HojeSeZero(acessorio().DataVal);
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
  EventForm::LevarCampos();
  acessorio().DataVal = DataOuZero(DTPicker2);
}

void Acessorios::Limparform() {
  EventForm::Limparform();
  DTPicker2.Value = DataDoDia();
}

void Acessorios::DepoisDeGravar() {
  const std::string& matricula = Campo[kMatricula].Text;
  GuardarCustoTotal(mybd, matricula, Tools::SomaCustoSemRevisoes(mybd, matricula));
  EventForm::DepoisDeGravar();
}

void Acessorios::DepoisDeAnular() {
  // From the list nothing is on the screen: the vehicle is the one that was named.
  const std::string& matricula = Campo[kMatricula].Text.empty() ? Matricula : Campo[kMatricula].Text;
  GuardarCustoTotal(mybd, matricula, Tools::SomaCustoSemRevisoes(mybd, Matricula));
}

}  // namespace zorCrmParvel
