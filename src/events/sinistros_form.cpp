#include "events/sinistros_form.h"

#include "host/tools.h"

namespace zorCrmParvel {
namespace {

using platform::zor_input;

enum Indice : int { kMatricula = 0, kMotorista = 1, kObs = 3, kLocal = 4, kCusto = 5 };

const TextosDoEvento kTextos{
    .nome = "Sinistros",
    .legenda = "Sinistros",
    .perguntaAnular = "Vai proceder à anulação do Sinistro!",
    .dicaLista = "Lista de Sinistros.",
    .classeArquivo = 305,
    .listaViaturas = 2,
    .tituloMarca = 8,
    .adopcao = Adopcao::kSeExiste,
    .esvaziaMarca = true,
};

}  // namespace

Sinistros::Sinistros() : FichaComMotorista(kTextos, std::make_unique<clSinistros>()) {
  Linha({{kMatricula, "Matrícula", "Matrícula da Viatura.", 10}});
  LinhaDaData(DTPicker1, "Data", "Data do Sinistro.");
  Linha({{kMotorista, "Motorista", "Motorista.", 10}});
  Linha({{kLocal, "Local", "Local do Sinistro.", 50}});
  Linha({{kCusto, "Custo", "Custo do Sinistro.", 10, zor_input::kNumero, "###,###.#0"}});
  LinhaDeControlo(Check1, "");
  Check1.Caption = "Responsável";
  Linha({{kObs, "Anotações sobre o sinistro", "Notas sobre o Sinistro.", 150}});
}

void Sinistros::MostrarCampos() {
  Campo[kMotorista].Text = sinistro().Motorista;
  Campo[kObs].Text = sinistro().Obs;
  Campo[kLocal].Text = sinistro().LocalAc;
  Campo[kCusto].Text = sinistro().Custo.ToText();
  Check1.Value = sinistro().Responsavel == 1 ? 1 : 0;
}

void Sinistros::LevarCampos() {
  sinistro().Motorista = Campo[kMotorista].Text;
  sinistro().Obs = Campo[kObs].Text;
  sinistro().LocalAc = Campo[kLocal].Text;
  sinistro().Custo = Tools::TextoParaMoeda(Campo[kCusto]);
  sinistro().Responsavel = Check1.Value == 1 ? 1 : 0;
}

void Sinistros::DepoisDeGravar() {
  Limparform();
  if (TipoMostrar == 1) LimparParaOMesmoVeiculo();
}

}  // namespace zorCrmParvel
