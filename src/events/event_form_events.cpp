// What the user does on an event's ficha: fields left, keys, lists and buttons.
#include "events/event_form.h"
#include "host/tools.h"
#include "platform/host.h"
#include "platform/text.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {

using platform::Variant;

void EventForm::btNavega_Click(int indice) {
  entidade_->Codigo = Campo[0].Text;
  entidade_->Data = DTPicker1.Value.ToDate();
  entidade_->bd = mybd;
  LerPelaSeta(*entidade_, indice);
  const std::int32_t id = entidade_->Id;
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
  if (Continuar(tipo_.textos.perguntaAnular, "Pretende continuar?")) Anular(Seg_Id, Matricula);
  Recomecar();
}

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
  for (const Referencia& referencia : Referencias())
    if (referencia.lista == indice) {
      campo = referencia.campo;
      codigo = Escolher(referencia);
    }
  if (indice == tipo_.listaViaturas) {
    clViaturas viatura;
    viatura.bd = mybd;
    codigo = viatura.MostraLista();
  }
  if (!codigo.empty()) Alterado = true;
  Tomar(campo, codigo);
}

void EventForm::Campo_Validate(int indice, bool& cancel) {
  if (tipo_.regrasComTecla && !teclado_) return;
  if (indice == 0)
    ValidarViatura(cancel);
  else if (const Referencia* referencia = ReferenciaDoCampo(indice))
    ValidarReferencia(*referencia, cancel);
  else
    ValidarCampo(indice, cancel);
}

void EventForm::ValidarViatura(bool& cancel) {
  const std::string& texto = Campo[0].Text;
  if (platform::Trim(texto).empty()) {
    cancel = true;
    return;
  }
  if (tipo_.adopcao == Adopcao::kLogo) Matricula = texto;
  clViaturas viatura;
  viatura.bd = mybd;
  viatura.Matricula = texto;
  if (!viatura.Ler()) {
    Tools::Mensagem("", "Viatura não existente!", Tools::kAviso);
    cancel = true;
    return;
  }
  if (tipo_.adopcao == Adopcao::kSeExiste) Matricula = texto;
  clMarcas marca;
  marca.bd = mybd;
  marca.Codigo = viatura.Marca;
  if (marca.Ler())
    Titulo[tipo_.tituloMarca].Caption = marca.Descrição;
  else if (tipo_.esvaziaMarca)
    Titulo[tipo_.tituloMarca].Caption.clear();
}

void EventForm::Campo_KeyPress(int indice, int& keyCode) { teclado_ = !Recuar(indice, keyCode); }

void EventForm::Campo_PedidoFicha(int indice) {
  if (indice == kMatricula) return AbrirFicha("Viaturas", "CarregaViatura", indice);
  if (const Referencia* referencia = ReferenciaDoCampo(indice))
    AbrirFicha(referencia->ficha, "CarregaFicha", indice);
}

}  // namespace zorCrmParvel
