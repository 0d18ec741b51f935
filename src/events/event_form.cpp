#include "events/event_form.h"

#include "host/tools.h"
#include "platform/format.h"
#include "platform/host.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {

using platform::Variant;
using platform::zor_input;

void EventForm::Definir(std::string_view membro, const Variant& valor) {
  if (membro == "TipoMostrar")
    TipoMostrar = valor.ToInteger();
  else if (membro == "Matricula")
    Matricula = valor.ToText();
  else if (membro == "Seg_Id")
    Seg_Id = valor.ToLong();
  else
    Ficha::Definir(membro, valor);
}

void EventForm::Chamar(std::string_view rotina, const Variant& argumento) {
  if (rotina != tipo_.textos.carrega) return Ficha::Chamar(rotina, argumento);
  Carrega(argumento.ToLong());
}

void EventForm::Carrega(std::int32_t id) {
  Seg_Id = id;
  entidade_->Id = id;
  entidade_->bd = mybd;
  if (entidade_->Ler()) {
    Matricula = entidade_->Codigo;
    LerFicha();
  } else {
    Campo[0].Text = Matricula;
    MostrarViatura();
  }
  if (TipoMostrar == 1) FixarMatricula();
}

void EventForm::FixarMatricula() {
  Campo[0].Enabled = false;
  if (ActiveControl() == &Campo[0]) PrimeiroCampo().SetFocus();
}

platform::Control& EventForm::PrimeiroCampo() {
  if (tipo_.comecaNaData) return DTPicker1;
  return Campo[1];
}

void EventForm::MostrarViatura() {
  clViaturas viatura;
  viatura.bd = mybd;
  viatura.Matricula = Matricula;
  viatura.Ler();
  GuardarDaViatura(viatura);
  MostrarMarca(viatura.Marca);
}

void EventForm::LerFicha() {
  MostrarViatura();
  Campo[0].Text = entidade_->Codigo;
  Campo[0].Enabled = true;
  DTPicker1.Value = NoFormatoDaData(entidade_->Data);
  MostrarCampos();
  for (const Referencia& referencia : Referencias()) MostrarReferencia(referencia);
}

void EventForm::MostrarMarca(const std::string& codigo) {
  clMarcas marca;
  marca.bd = mybd;
  marca.Codigo = codigo;
  Titulo[tipo_.tituloMarca].Caption = marca.Ler() ? marca.Descrição : "";
}

void EventForm::MostrarCampos() {
  for (const CampoDoEvento& campo : campos_) {
    if (campo.texto != nullptr) Campo[campo.indice].Text = *campo.texto;
    if (campo.numero != nullptr) Campo[campo.indice].Text = campo.numero->ToText();
  }
}

void EventForm::LevarCampos() {
  for (const CampoDoEvento& campo : campos_) {
    if (campo.texto != nullptr) *campo.texto = Campo[campo.indice].Text;
    if (campo.numero != nullptr) *campo.numero = Tools::TextoParaMoeda(Campo[campo.indice]);
  }
}

void EventForm::Limparform() {
  Campo.Each([](zor_input& campo) {
    if (campo.Index() != 0) campo.Text.clear();
  });
  Titulo.Each([](platform::Label& titulo) { titulo.Caption.clear(); });
  DTPicker1.Value = DataDoDia();
  if (TipoMostrar == 1) btLista[tipo_.listaViaturas].Enabled = false;
  Alterado = false;
}

platform::Date EventForm::NoFormatoDaData(platform::Date data) const {
  return platform::Date::Parse(platform::FormatDate(data, tipo_.formatoData));
}

platform::Date EventForm::DataDoDia() const { return NoFormatoDaData(platform::Now()); }

void EventForm::LimparParaOMesmoVeiculo() {
  Limparform();
  Campo[1].SetFocus();
}

void EventForm::DepoisDeGravar() {
  if (TipoMostrar == 1) LimparParaOMesmoVeiculo();
}

void EventForm::Recomecar() {
  Limparform();
  Seg_Id = 0;
  if (TipoMostrar == 1) return PrimeiroCampo().SetFocus();
  Campo[0].Text.clear();
  Campo[0].SetFocus();
}

void EventForm::Gravar() {
  entidade_->Codigo = Campo[0].Text;
  entidade_->Data = DTPicker1.Value.ToDate();
  LevarCampos();
  entidade_->Id = Seg_Id;
  entidade_->bd = mybd;
  entidade_->Escrever();
  DepoisDeGravar();
}

void EventForm::Anular(std::int32_t id, const std::string& matricula) {
  Seg_Id = id;
  Matricula = matricula;
  entidade_->bd = mybd;
  entidade_->Id = id;
  if (entidade_->Anular()) DepoisDeAnular();
}

}  // namespace zorCrmParvel
