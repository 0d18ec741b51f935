// What the user does on an event's ficha: fields left, keys, lists and buttons.
#include <algorithm>

#include "events/event_form.h"
#include "host/form_catalog.h"
#include "host/tools.h"
#include "platform/host.h"
#include "platform/text.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {

using platform::Variant;
using platform::zor_input;

void EventForm::Navega(int indice, std::int32_t& id) {
  entidade_->Codigo = Campo[0].Text;
  entidade_->Data = DTPicker1.Value.ToDate();
  entidade_->bd = mybd;
  LerPelaSeta(*entidade_, indice);
  id = entidade_->Id;
}

void EventForm::btNavega_Click(int indice) {
  std::int32_t id = 0;
  Navega(indice, id);
  if (Alterado && Continuar("A informação relativa à Ficha foi alterada.", "Pretende gravar?")) Gravar();
  entidade_->Id = id;
  entidade_->Ler();
  Matricula = entidade_->Codigo;
  Seg_Id = entidade_->Id;
  LerFicha();
  Campo[0].SetFocus();
  Alterado = false;
}

void EventForm::btConf_Click() {
  Gravar();
  Recomecar();
}

void EventForm::btAnular_Click() {
  if (Continuar(textos_.perguntaAnular, "Pretende continuar?")) Anular(Seg_Id, Matricula);
  Recomecar();
}

void EventForm::btArquivo_Click() { AbrirArquivo(Campo[0].Text, textos_.classeArquivo); }

void EventForm::ListaDosEventos() {
  entidade_->bd = mybd;
  entidade_->Codigo = Matricula;
  const std::string id = entidade_->MostraLista(TipoMostrar);
  if (id.empty()) return;
  Seg_Id = Variant(id).ToLong();
  Carrega(Seg_Id);
}

void EventForm::btLista_Click(int indice) {
  if (indice == 0) return ListaDosEventos();
  if (btLista.Has(indice) && !btLista[indice].Enabled) return;
  std::string codigo;
  int campo = 0;
  if (const Referencia* referencia = ReferenciaDaLista(indice)) {
    const auto tabela = referencia->nova();
    tabela->bd = mybd;
    codigo = tabela->MostraLista();
    campo = referencia->campo;
  } else if (indice == textos_.listaViaturas) {
    clViaturas viatura;
    viatura.bd = mybd;
    codigo = viatura.MostraLista();
  }
  if (codigo.empty()) return Campo[campo].SetFocus();
  Campo[campo].Text = codigo;
  Alterado = true;
  Campo[campo].SelectAll();
  Campo[campo].SetFocus();
  SendKeys("{TAB}");
}

const Referencia* EventForm::ReferenciaDoCampo(int indice) const {
  const auto found = std::find_if(referencias_.begin(), referencias_.end(),
                                  [=](const Referencia& r) { return r.campo == indice; });
  return found == referencias_.end() ? nullptr : &*found;
}

const Referencia* EventForm::ReferenciaDaLista(int indice) const {
  const auto found = std::find_if(referencias_.begin(), referencias_.end(),
                                  [=](const Referencia& r) { return r.lista == indice; });
  return found == referencias_.end() ? nullptr : &*found;
}

void EventForm::Campo_Validate(int indice, bool& cancel) {
  if (!ComRegras()) return;
  if (indice == 0)
    ValidarViatura(cancel);
  else if (const Referencia* referencia = ReferenciaDoCampo(indice))
    ValidarReferencia(*referencia, cancel);
  else
    ValidarCampo(indice, cancel);
}

void EventForm::ValidarCampo(int, bool&) {}

void EventForm::ValidarViatura(bool& cancel) {
  const std::string& texto = Campo[0].Text;
  if (platform::Trim(texto).empty()) {
    cancel = true;
    return;
  }
  if (textos_.adopcao == Adopcao::kLogo) Matricula = texto;
  clViaturas viatura;
  viatura.bd = mybd;
  viatura.Matricula = texto;
  if (!viatura.Ler()) {
    Tools::Mensagem("", "Viatura não existente!", Tools::kAviso);
    cancel = true;
    return;
  }
  if (textos_.adopcao == Adopcao::kSeExiste) Matricula = texto;
  clMarcas marca;
  marca.bd = mybd;
  marca.Codigo = viatura.Marca;
  if (marca.Ler())
    Titulo[textos_.tituloMarca].Caption = marca.Descrição;
  else if (textos_.esvaziaMarca)
    Titulo[textos_.tituloMarca].Caption.clear();
}

void EventForm::ValidarReferencia(const Referencia& referencia, bool& cancel) {
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

void EventForm::Campo_KeyPress(int indice, int& keyCode) {
  Validar = true;
  if (keyCode != platform::kKeyEscape) return;
  SendKeys("+{TAB}");
  keyCode = platform::kKeyNone;
  Validar = false;
  if (indice == 0) Unload();
}

void EventForm::Campo_PedidoFicha(int indice) {
  const Referencia* referencia = ReferenciaDoCampo(indice);
  if (indice != 0 && referencia == nullptr) return;
  const auto ficha = FormCatalog::Shared().Make(indice == 0 ? "Viaturas" : referencia->ficha);
  if (!ficha) return;
  const std::string& codigo = Campo[indice].Text;
  ficha->mybd = mybd;
  ficha->Load();
  const auto* chave = dynamic_cast<const zor_input*>(ficha->ActiveControl());
  if (chave == nullptr || chave->Fits(codigo))
    ficha->Chamar(indice == 0 ? "CarregaViatura" : "CarregaFicha", codigo);
  else
    ficha->Notify("«" + codigo + "» não é um código: tem mais de " + std::to_string(chave->maxlength) +
                  " caracteres.");
  ficha->ShowModal();
}

}  // namespace zorCrmParvel
