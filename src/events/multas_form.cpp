#include "events/multas_form.h"

#include "drivers/motoristas.h"
#include "host/tools.h"

namespace zorCrmParvel {
namespace {

using platform::zor_input;

enum Indice : int { kMatricula = 0, kMotorista = 1, kObs = 3, kValor = 4 };

const TextosDoEvento kTextos{
    .nome = "Multas",
    .legenda = "Multas",
    .perguntaAnular = "Vai proceder à anulação da Multa!",
    .dicaLista = "Lista de Multas.",
    .classeArquivo = 306,
    .listaViaturas = 2,
    .tituloMarca = 8,
    .adopcao = Adopcao::kSeExiste,
    .esvaziaMarca = true,
};

std::vector<Referencia> Referencias() {
  return {{.campo = kMotorista,
           .lista = 1,
           .titulo = 7,
           .dicaLista = "Lista de Motoristas.",
           .ficha = "Motoristas",
           .nova = &NovaEntidade<clMotoristas>,
           .inexistente = "Motorista não existente!",
           .caixaSimples = true}};
}

}  // namespace

FichaComMotorista::FichaComMotorista(const TextosDoEvento& textos, std::unique_ptr<EventEntity> entidade)
    : EventForm(textos, std::move(entidade), Referencias()), Check1(*this, "Check1") {
  Check1.Click = [this] { Alterado = true; };
}

void FichaComMotorista::Limparform() {
  EventForm::Limparform();
  Check1.Value = 0;
}

void FichaComMotorista::Anular(std::int32_t id, const std::string&) {
  entidade().bd = mybd;
  entidade().Id = id;
  if (entidade().Anular() && TipoMostrar == 0) LimparParaOMesmoVeiculo();
}

Multas::Multas() : FichaComMotorista(kTextos, std::make_unique<clMultas>()) {
  Linha({{kMatricula, "Matrícula", "Matrícula da Viatura.", 10}});
  LinhaDaData(DTPicker1, "Data", "Data de Multa.");
  Linha({{kMotorista, "Motorista", "Motorista.", 10}});
  Linha({{kValor, "Valor", "Valor da Multa.", 10, zor_input::kNumero, "###,###.#0"}});
  LinhaDeControlo(Check1, "");
  Check1.Caption = "Responsabilidade";
  Linha({{kObs, "Observações", "Obs.", 150}});
}

void Multas::MostrarCampos() {
  Campo[kMotorista].Text = multa().Motorista;
  Campo[kObs].Text = multa().Obs;
  Campo[kValor].Text = multa().Valor.ToText();
  Check1.Value = multa().Responsabilidade == 1 ? 1 : 0;
}

void Multas::LevarCampos() {
  multa().Motorista = Campo[kMotorista].Text;
  multa().Obs = Campo[kObs].Text;
  multa().Valor = Tools::TextoParaMoeda(Campo[kValor]);
  multa().Responsabilidade = Check1.Value == 1 ? 1 : 0;
}

void Multas::DepoisDeGravar() {
  if (TipoMostrar == 1) LimparParaOMesmoVeiculo();
}

}  // namespace zorCrmParvel
