#include "events/incidents_form.h"

#include "drivers/motoristas.h"

namespace zorCrmParvel {
namespace {

enum Indice : int { kMotorista = 1, kObs = 3, kValor = 4, kLocal = 4, kCusto = 5 };

FichaDeEvento Tipo(const TextosDoEvento& textos, int classeArquivo) {
  return {.textos = textos,
          .classeArquivo = classeArquivo,
          .listaViaturas = 2,
          .tituloMarca = 8,
          .adopcao = Adopcao::kSeExiste,
          .esvaziaMarca = true,
          .referencias = {{kMotorista, 1, 7, "Lista de Motoristas.", "Motoristas",
                           &NovaEntidade<clMotoristas>, "Motorista não existente!", false, true}}};
}

const FichaDeEvento kMultas =
    Tipo({"Multas", "Multas", "CarregaMulta", "Vai proceder à anulação da Multa!", "Lista de Multas."}, 306);

const FichaDeEvento kSinistros = Tipo({"Sinistros", "Sinistros", "CarregaSinistro",
                                       "Vai proceder à anulação do Sinistro!", "Lista de Sinistros."},
                                      305);

}  // namespace

FichaDeIncidente::FichaDeIncidente(const FichaDeEvento& tipo, std::unique_ptr<Incidente> incidente,
                                   const char* dicaData)
    : EventForm(tipo, std::move(incidente)), Check1(*this, "Check1") {
  Check1.Click = [this] { Alterado = true; };
  LinhaDaMatricula();
  LinhaDaData(DTPicker1, "Data", dicaData);
  Linha({Texto(kMotorista, "Motorista", "Motorista.", 10, this->incidente().Motorista)});
}

void FichaDeIncidente::LinhaDaResponsabilidade(const char* legenda, std::int16_t& propriedade) {
  responsavel_ = &propriedade;
  LinhaDeControlo(Check1, "");
  Check1.Caption = legenda;
}

void FichaDeIncidente::MostrarCampos() {
  EventForm::MostrarCampos();
  Check1.Value = *responsavel_ == 1 ? 1 : 0;
}

void FichaDeIncidente::LevarCampos() {
  EventForm::LevarCampos();
  *responsavel_ = Check1.Value == 1 ? 1 : 0;
}

void FichaDeIncidente::Limparform() {
  EventForm::Limparform();
  Check1.Value = 0;
}

void FichaDeIncidente::Anular(std::int32_t id, const std::string&) {
  entidade().bd = mybd;
  entidade().Id = id;
  if (entidade().Anular() && TipoMostrar == 0) LimparParaOMesmoVeiculo();
}

Multas::Multas() : FichaDeIncidente(kMultas, std::make_unique<clMultas>(), "Data de Multa.") {
  auto& multa = static_cast<clMultas&>(incidente());
  Linha({Numero(kValor, "Valor", "Valor da Multa.", multa.Valor)});
  LinhaDaResponsabilidade("Responsabilidade", multa.Responsabilidade);
  Linha({Texto(kObs, "Observações", "Obs.", 150, multa.Obs)});
}

Sinistros::Sinistros() : FichaDeIncidente(kSinistros, std::make_unique<clSinistros>(), "Data do Sinistro.") {
  auto& sinistro = static_cast<clSinistros&>(incidente());
  Linha({Texto(kLocal, "Local", "Local do Sinistro.", 50, sinistro.LocalAc)});
  Linha({Numero(kCusto, "Custo", "Custo do Sinistro.", sinistro.Custo)});
  LinhaDaResponsabilidade("Responsável", sinistro.Responsavel);
  Linha({Texto(kObs, "Anotações sobre o sinistro", "Notas sobre o Sinistro.", 150, sinistro.Obs)});
}

void Sinistros::DepoisDeGravar() {
  Limparform();
  EventForm::DepoisDeGravar();
}

}  // namespace zorCrmParvel
