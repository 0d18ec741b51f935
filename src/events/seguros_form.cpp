#include "events/seguros_form.h"

namespace zorCrmParvel {
namespace {

enum Indice : int { kCompanhia = 1, kTipoSeguro, kApolice, kPremio, kFranquia, kCoberturas };
enum Modalidade : int { kAnual, kSemestral };

const FichaDeEvento kSeguros{
    .textos = {"Seguros", "Apólices", "CarregaSeguro", "Vai proceder à anulação da Apólice!",
               "Lista de Apólices."},
    .classeArquivo = 304,
    .listaViaturas = 3,
    .tituloMarca = 9,
    .referencias = {{kCompanhia, 1, 7, "Lista de Companhias.", "Companhias", &NovaEntidade<clCompanhias>,
                     "Companhia não existente!"},
                    {kTipoSeguro, 2, 8, "Lista de Tipos de Apólices.", "TiposSeguro",
                     &NovaEntidade<clTiposSeguros>, "Tipo de Seguro não existente!"}},
};

}  // namespace

Seguros::Seguros()
    : EventForm(kSeguros, std::make_unique<clSeguros>()),
      DTPicker2(*this, "DTPicker2"),
      Combo1(*this, "Combo1"),
      Check1(*this, "Check1"),
      btRenovar(*this, "btRenovar") {
  LinhaDaMatricula();
  Linha({Texto(kCompanhia, "Companhia", "Seguradora.", 10, seguro().Companhia)});
  Linha({Texto(kTipoSeguro, "Tipo Apólice", "Tipo de Seguro.", 10, seguro().TipoSeguro)});
  Linha({Texto(kApolice, "Apólice", "Número da Apólice.", 15, seguro().Apolice)});
  LinhaDaData(DTPicker2, "Data Início", "Data de Validade.");
  LinhaDaData(DTPicker1, "Data Validade", "Data de Validade.");
  LinhaDeControlo(Combo1, "Modalidade");
  Linha({Numero(kPremio, "Prémio", "Prémio do Seguro.", seguro().Premio),
         Numero(kFranquia, "Franquia", "Franquia.", seguro().Franquia)});
  Linha({Texto(kCoberturas, "Coberturas", "Número da Apólice.", 200, seguro().Coberturas)});
  LinhaDeControlo(Check1, "");
  Check1.Caption = "Inactiva";
  Check1.Click = Combo1.Click = Combo1.Change = [this] { Alterado = true; };
  btRenovar.Caption = "&Renovar";
  btRenovar.ToolTipText = "Renovação da apólice.";
  btRenovar.TabStop = false;
  btRenovar.Click = [this] { btRenovar_Click(); };
  layout.tools.push_back(&btRenovar);
}

void Seguros::Form_Load() {
  Combo1.List = {"Anual", "Semestral"};
  EventForm::Form_Load();
}

void Seguros::MostrarCampos() {
  EventForm::MostrarCampos();
  Combo1.ListIndex = seguro().Modalidade;
  DTPicker1.Value = seguro().Validade;  // a policy's dates are shown as they stand
  DTPicker2.Value = seguro().DataInicio;
  Check1.Value = seguro().Inactiva == 1 ? 1 : 0;
}

void Seguros::LevarCampos() {
  EventForm::LevarCampos();
  seguro().Modalidade = static_cast<std::int16_t>(Combo1.ListIndex);
  seguro().DataInicio = DTPicker2.Value.ToDate();
  seguro().Inactiva = Check1.Value == 1 ? 1 : 0;
}

void Seguros::Limparform() {
  EventForm::Limparform();
  DTPicker2.Value = DataDoDia();
  Check1.Value = 0;
  Combo1.ListIndex = kSemestral;
  Renovar_ = false;
}

void Seguros::Anular(std::int32_t id, const std::string&) {
  Seg_Id = id;
  entidade().bd = mybd;
  entidade().Id = id;
  entidade().Anular();
}

void Seguros::btAnular_Click() {
  if (Continuar(perguntaAnular(), "Pretende continuar?")) Anular(Seg_Id, Matricula);
  if (TipoMostrar != 1) return Unload();
  LimparParaOMesmoVeiculo();
  Seg_Id = 0;
}

void Seguros::btConf_Click() {
  if (Renovar_) GravaRenovar();
  EventForm::btConf_Click();
}

void Seguros::btRenovar_Click() {
  if (!Continuar("Vai proceder à renovação da Apólice!", "Pretende continuar?")) return;
  Limparform();
  Renovar_ = true;
  Carrega(Seg_Id);
  IdAnterior_ = Seg_Id;
  DTPicker2.Value = DTPicker1.Value.ToDate().DayOnly();
  DTPicker1.Value = DTPicker2.Value.ToDate().AddMonths(Combo1.ListIndex == kAnual ? 12 : 6);
  Seg_Id = 0;  // the confirmation inserts
}

/// Closes the policy that was renewed: the entity still holds it as it was read.
void Seguros::GravaRenovar() {
  seguro().Inactiva = 1;
  seguro().Id = IdAnterior_;
  seguro().bd = mybd;
  seguro().Escrever();
}

}  // namespace zorCrmParvel
