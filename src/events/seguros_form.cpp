#include "events/seguros_form.h"

#include "host/tools.h"

namespace zorCrmParvel {
namespace {

using platform::zor_input;

enum Indice : int { kMatricula, kCompanhia, kTipoSeguro, kApolice, kPremio, kFranquia, kCoberturas };
enum Modalidade : int { kAnual, kSemestral };

const TextosDoEvento kTextos{
    .nome = "Seguros",
    .legenda = "Apólices",
    .perguntaAnular = "Vai proceder à anulação da Apólice!",
    .dicaLista = "Lista de Apólices.",
    .classeArquivo = 304,
    .listaViaturas = 3,
    .tituloMarca = 9,
};

std::vector<Referencia> Referencias() {
  return {{.campo = kCompanhia,
           .lista = 1,
           .titulo = 7,
           .dicaLista = "Lista de Companhias.",
           .ficha = "Companhias",
           .nova = &NovaEntidade<clCompanhias>,
           .inexistente = "Companhia não existente!"},
          {.campo = kTipoSeguro,
           .lista = 2,
           .titulo = 8,
           .dicaLista = "Lista de Tipos de Apólices.",
           .ficha = "TiposSeguro",
           .nova = &NovaEntidade<clTiposSeguros>,
           .inexistente = "Tipo de Seguro não existente!"}};
}

}  // namespace

Seguros::Seguros()
    : EventForm(kTextos, std::make_unique<clSeguros>(), Referencias()),
      DTPicker2(*this, "DTPicker2"),
      Combo1(*this, "Combo1"),
      Check1(*this, "Check1"),
      btRenovar(*this, "btRenovar") {
  Linha({{kMatricula, "Matrícula", "Matrícula da Viatura.", 10}});
  Linha({{kCompanhia, "Companhia", "Seguradora.", 10}});
  Linha({{kTipoSeguro, "Tipo Apólice", "Tipo de Seguro.", 10}});
  Linha({{kApolice, "Apólice", "Número da Apólice.", 15}});
  LinhaDaData(DTPicker2, "Data Início", "Data de Validade.");
  LinhaDaData(DTPicker1, "Data Validade", "Data de Validade.");
  LinhaDeControlo(Combo1, "Modalidade");
  Linha({{kPremio, "Prémio", "Prémio do Seguro.", 10, zor_input::kNumero, "###,###.#0"},
         {kFranquia, "Franquia", "Franquia.", 10, zor_input::kNumero, "###,###.#0"}});
  Linha({{kCoberturas, "Coberturas", "Número da Apólice.", 200}});
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
  Campo[kCompanhia].Text = seguro().Companhia;
  Campo[kTipoSeguro].Text = seguro().TipoSeguro;
  Campo[kApolice].Text = seguro().Apolice;
  Campo[kPremio].Text = seguro().Premio.ToText();
  Campo[kFranquia].Text = seguro().Franquia.ToText();
  Campo[kCoberturas].Text = seguro().Coberturas;
  Combo1.ListIndex = seguro().Modalidade;
  DTPicker1.Value = seguro().Validade;  // a policy's dates are shown as they stand
  DTPicker2.Value = seguro().DataInicio;
  Check1.Value = seguro().Inactiva == 1 ? 1 : 0;
}

void Seguros::LevarCampos() {
  seguro().TipoSeguro = Campo[kTipoSeguro].Text;
  seguro().Companhia = Campo[kCompanhia].Text;
  seguro().Apolice = Campo[kApolice].Text;
  seguro().Premio = Tools::TextoParaMoeda(Campo[kPremio]);
  seguro().Franquia = Tools::TextoParaMoeda(Campo[kFranquia]);
  seguro().Modalidade = static_cast<std::int16_t>(Combo1.ListIndex);
  seguro().DataInicio = DTPicker2.Value.ToDate();
  seguro().Inactiva = Check1.Value == 1 ? 1 : 0;
  seguro().Coberturas = Campo[kCoberturas].Text;
}

void Seguros::Limparform() {
  EventForm::Limparform();
  DTPicker2.Value = DataDoDia();
  Check1.Value = 0;
  Combo1.ListIndex = kSemestral;
  Renovar_ = false;
}

void Seguros::DepoisDeGravar() {
  if (TipoMostrar == 1) LimparParaOMesmoVeiculo();
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
