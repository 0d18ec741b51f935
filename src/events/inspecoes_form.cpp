#include "events/inspecoes_form.h"

#include "events/cost_sums.h"
#include "host/tools.h"

namespace zorCrmParvel {
namespace {

using platform::zor_input;

enum Indice : int { kMatricula, kKm, kCusto, kObs };

const TextosDoEvento kTextos{
    .nome = "Inspecoes",
    .legenda = "Inspecções",
    .perguntaAnular = "Vai proceder à anulação da Inspecção!",
    .dicaLista = "Lista de Inspecções.",
    .classeArquivo = 302,
    .listaViaturas = 1,
    .tituloMarca = 7,
    .adopcao = Adopcao::kSeExiste,
    .esvaziaMarca = true,
};

}  // namespace

Inspecoes::Inspecoes() : EventForm(kTextos, std::make_unique<clInspecoes>(), {}) {
  Linha({{kMatricula, "Matrícula", "Matrícula da Viatura.", 10}});
  LinhaDaData(DTPicker1, "Data", "Data da aquisicão.");
  Linha({{kKm, "Km", "Km Iniciais.", 10, zor_input::kInteiro, "###,##0"},
         {kCusto, "Custo", "Custo do Acessório.", 10, zor_input::kNumero, "###,###.#0"}});
  Linha({{kObs, "Observações", "Obs.", 150}});
}

void Inspecoes::MostrarCampos() {
  Campo[kObs].Text = inspecao().Obs;
  Campo[kKm].Text = inspecao().Km.ToText();
  Campo[kCusto].Text = inspecao().Custo.ToText();
}

void Inspecoes::LevarCampos() {
  inspecao().Obs = Campo[kObs].Text;
  inspecao().Km = Tools::TextoParaMoeda(Campo[kKm]);
  inspecao().Custo = Tools::TextoParaMoeda(Campo[kCusto]);
}

void Inspecoes::DepoisDeGravar() {
  GuardarCustoTotal(mybd, Matricula, Tools::SomaCustoSemRevisoes(mybd, Campo[kMatricula].Text));
  if (TipoMostrar != 1) Limparform();
  Campo[1].SetFocus();
}

void Inspecoes::DepoisDeAnular() {
  GuardarCustoTotal(mybd, Matricula, Tools::SomaCustoSemRevisoes(mybd, Matricula));
}

}  // namespace zorCrmParvel
