#include "events/revisoes_form.h"

#include "events/cost_sums.h"
#include "host/tools.h"

namespace zorCrmParvel {
namespace {

using platform::zor_input;

enum Indice : int { kMatricula, kTipoManut, kKm, kObs, kCusto };

const TextosDoEvento kTextos{
    .nome = "Revisoes",
    .legenda = "Revisões",
    .perguntaAnular = "Vai proceder à anulação da Revisão!",
    .dicaLista = "Lista de Revisões.",
    .classeArquivo = 301,
    .listaViaturas = 2,
    .tituloMarca = 8,
    .adopcao = Adopcao::kSeExiste,
};

std::vector<Referencia> Referencias() {
  return {{.campo = kTipoManut,
           .lista = 1,
           .titulo = 7,
           .dicaLista = "Lista de Tipos de Revisões.",
           .ficha = "TiposManut",
           .nova = &NovaEntidade<clTiposManut>,
           .inexistente = "Tipo Manutenção não existente!",
           .caixaSimples = true}};
}

}  // namespace

Revisoes::Revisoes() : EventForm(kTextos, std::make_unique<clRevisoes>(), Referencias()) {
  Linha({{kMatricula, "Matrícula", "Matrícula da Viatura.", 10}});
  LinhaDaData(DTPicker1, "Data", "Data da aquisicão.");
  Linha({{kTipoManut, "Tipo Revisão", "Tipo de Acessório.", 10}});
  Linha({{kKm, "Km", "Km Iniciais.", 10, zor_input::kInteiro, "###,##0"},
         {kCusto, "Custo", "Custo do Acessório.", 10, zor_input::kNumero, "###,###.#0"}});
  Linha({{kObs, "Observações", "Obs.", 150}});
}

void Revisoes::MostrarCampos() {
  Campo[kTipoManut].Text = revisao().TipoManut;
  Campo[kObs].Text = revisao().Obs;
  Campo[kKm].Text = revisao().Km.ToText();
  Campo[kCusto].Text = revisao().Custo.ToText();
}

void Revisoes::LevarCampos() {
  revisao().TipoManut = Campo[kTipoManut].Text;
  revisao().Obs = Campo[kObs].Text;
  revisao().Km = Tools::TextoParaMoeda(Campo[kKm]);
  revisao().Custo = Tools::TextoParaMoeda(Campo[kCusto]);
}

void Revisoes::DepoisDeGravar() {
  GuardarCustoTotal(mybd, Matricula, Tools::SomaCustoComRevisoes(mybd, Campo[kMatricula].Text));
  if (TipoMostrar != 1) Limparform();
  Campo[1].SetFocus();
}

void Revisoes::DepoisDeAnular() {
  GuardarCustoTotal(mybd, Matricula, Tools::SomaCustoComRevisoes(mybd, Matricula));
}

}  // namespace zorCrmParvel
