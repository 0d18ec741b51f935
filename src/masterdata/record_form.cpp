#include "masterdata/record_form.h"

#include <algorithm>

#include "host/form_catalog.h"
#include "host/tools.h"
#include "platform/host.h"

namespace zorCrmParvel {

using platform::Date;
using platform::PushButton;

void RecordForm::LigarBotoes(BotoesDaFicha& botoes) {
  botoes.btConf.Click = [this] { btConf_Click(); };
  botoes.btCancelar.Click = [this] { btCancelar_Click(); };
  botoes.btAnular.Click = [this] { btAnular_Click(); };
  botoes.btSair.Click = [this] { Unload(); };
  botoes.btNavega.Each([this](PushButton& button) {
    button.Click = [this, indice = button.Index()] { btNavega_Click(indice); };
  });
}

PushButton& RecordForm::NovaLista(int indice, const char* dica) {
  PushButton& button = btLista.Add(*this, "btLista", indice);
  button.Caption = "…";
  button.ToolTipText = dica;
  button.TabStop = false;
  button.Click = [this, indice] { btLista_Click(indice); };
  return button;
}

bool RecordForm::Recuar(int indice, int& keyCode) {
  if (keyCode != platform::kKeyEscape) return false;
  SendKeys("+{TAB}");
  keyCode = platform::kKeyNone;
  if (indice == 0) Unload();
  return true;
}

void RecordForm::Tomar(int campo, const std::string& codigo) {
  if (codigo.empty()) return Campo[campo].SetFocus();
  Campo[campo].Text = codigo;
  Campo[campo].SelectAll();
  Campo[campo].SetFocus();
  SendKeys("{TAB}");
}

bool RecordForm::Continuar(const char* primeira, const char* segunda) {
  return Tools::Mensagem("", Tools::DuasFrases(primeira, segunda), Tools::kOkCancelar) != platform::kCancel;
}

Date RecordForm::DataOuZero(const platform::DTPicker& data) {
  return data.Value.IsNull() ? Date() : data.Value.ToDate();
}

Date RecordForm::HojeSeZero(Date data) { return data.IsZero() ? platform::Today() : data; }

const Referencia* RecordForm::ReferenciaDoCampo(int campo) const {
  const auto found = std::find_if(referencias_.begin(), referencias_.end(),
                                  [=](const Referencia& r) { return r.campo == campo; });
  return found == referencias_.end() ? nullptr : &*found;
}

std::string RecordForm::Escolher(const Referencia& referencia) const {
  const auto tabela = referencia.nova();
  tabela->bd = mybd;
  return tabela->MostraLista();
}

void RecordForm::MostrarReferencia(const Referencia& referencia) {
  const auto tabela = referencia.nova();
  tabela->bd = mybd;
  tabela->Codigo = Campo[referencia.campo].Text;
  Titulo[referencia.titulo].Caption = tabela->Ler() ? tabela->Descrição : "";
  ReferenciaLida(referencia, *tabela, false);
}

void RecordForm::ValidarReferencia(const Referencia& referencia, bool& cancel) {
  const std::string& codigo = Campo[referencia.campo].Text;
  if (codigo.empty() && referencia.opcional) return;
  const auto tabela = referencia.nova();
  tabela->bd = mybd;
  tabela->Codigo = codigo;
  if (!tabela->Ler()) {
    if (referencia.caixaSimples)
      platform::MsgBox(referencia.inexistente);
    else
      Tools::Mensagem("", referencia.inexistente, Tools::kAviso);
    cancel = true;
    return;
  }
  Titulo[referencia.titulo].Caption = tabela->Descrição;
  ReferenciaLida(referencia, *tabela, true);
}

void RecordForm::AbrirFicha(const char* nome, const char* rotina, int campo) {
  const auto ficha = FormCatalog::Shared().Make(nome);
  if (!ficha) return;
  const std::string& codigo = Campo[campo].Text;
  ficha->mybd = mybd;
  ficha->Load();
  const auto* chave = dynamic_cast<const platform::zor_input*>(ficha->ActiveControl());
  if (chave == nullptr || chave->Fits(codigo))
    ficha->Chamar(rotina, codigo);
  else
    ficha->Notify("«" + codigo + "» não é um código: tem mais de " + std::to_string(chave->maxlength) +
                  " caracteres.");
  ficha->ShowModal();
}

}  // namespace zorCrmParvel
