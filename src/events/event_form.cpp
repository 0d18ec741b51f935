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
  if (rotina != RotinaCarrega()) return Ficha::Chamar(rotina, argumento);
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

void EventForm::GuardarDaViatura(const clViaturas&) {}

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
  for (const Referencia& referencia : referencias_) MostrarReferencia(referencia);
}

void EventForm::MostrarMarca(const std::string& codigo) {
  clMarcas marca;
  marca.bd = mybd;
  marca.Codigo = codigo;
  Titulo[textos_.tituloMarca].Caption = marca.Ler() ? marca.Descrição : "";
}

void EventForm::MostrarReferencia(const Referencia& referencia) {
  const auto tabela = referencia.nova();
  tabela->bd = mybd;
  tabela->Codigo = Campo[referencia.campo].Text;
  Titulo[referencia.titulo].Caption = tabela->Ler() ? tabela->Descrição : "";
  ReferenciaLida(referencia, *tabela, false);
}

void EventForm::ReferenciaLida(const Referencia&, CodeTable&, bool) {}

void EventForm::Limparform() {
  Campo.Each([](zor_input& campo) {
    if (campo.Index() != 0) campo.Text.clear();
  });
  Titulo.Each([](platform::Label& titulo) { titulo.Caption.clear(); });
  DTPicker1.Value = DataDoDia();
  if (TipoMostrar == 1) btLista[textos_.listaViaturas].Enabled = false;
  Alterado = false;
}

platform::Date EventForm::NoFormatoDaData(platform::Date data) const {
  return platform::Date::Parse(platform::FormatDate(data, textos_.formatoData));
}

platform::Date EventForm::DataDoDia() const { return NoFormatoDaData(platform::Now()); }

void EventForm::LimparParaOMesmoVeiculo() {
  Limparform();
  Campo[1].SetFocus();
}

bool EventForm::Continuar(const char* primeira, const char* segunda) {
  return Tools::Mensagem("", Tools::DuasFrases(primeira, segunda), Tools::kOkCancelar) != platform::kCancel;
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
  if (entidade_->Escrever())
    DepoisDeGravar();
  else
    Campo[1].SetFocus();
}

void EventForm::Anular(std::int32_t id, const std::string& matricula) {
  Seg_Id = id;
  Matricula = matricula;
  entidade_->bd = mybd;
  entidade_->Id = id;
  if (entidade_->Anular()) DepoisDeAnular();
}

}  // namespace zorCrmParvel
