// How an event ficha is put together: its controls, their places and their events.
#include "events/event_form.h"

#include <algorithm>

#include "platform/runtime_error.h"

namespace zorCrmParvel {

using platform::PushButton;
using platform::zor_input;

EventForm::EventForm(const TextosDoEvento& textos, std::unique_ptr<EventEntity> entidade,
                     std::vector<Referencia> referencias)
    : DTPicker1(*this, "DTPicker1"),
      btArquivo(*this, "btArquivo"),
      botoes(*this),
      textos_(textos),
      entidade_(std::move(entidade)),
      referencias_(std::move(referencias)) {
  Name = textos.nome;
  Caption = textos.legenda;
  const auto lista = [this](int indice, const char* dica) {
    PushButton& button = btLista.Add(*this, "btLista", indice);
    button.Caption = "…";
    button.ToolTipText = dica;
    button.TabStop = false;
    button.Click = [this, indice] { btLista_Click(indice); };
  };
  lista(0, textos.dicaLista);
  lista(textos.listaViaturas, "Lista de Viaturas.");
  Titulo.Add(*this, "Titulo", textos.tituloMarca);
  for (const Referencia& referencia : referencias_) {
    lista(referencia.lista, referencia.dicaLista);
    Titulo.Add(*this, "Titulo", referencia.titulo);
  }
  btLista[0].Caption = "&Lista";
  btArquivo.Caption = "Ar&quivo";
  btArquivo.ToolTipText = "Arquivo digital.";
  btArquivo.TabStop = false;
  botoes.Dispor(layout);
  layout.tools = {&btLista[0], &btArquivo};
  LigarEventos();
}

void EventForm::Linha(const std::vector<CampoDoEvento>& campos) {
  platform::LayoutRow linha;
  for (const CampoDoEvento& c : campos) {
    zor_input& campo = Campo.Add(*this, "Campo", c.indice);
    TabBefore(campo, botoes.btConf);
    Legenda.Add(*this, "Legenda", c.indice).Caption = c.legenda;
    campo.ToolTipText = c.dica;
    campo.maxlength = c.maxlength;
    campo.formato_campo = c.formato;
    campo.formato = c.mascara;
    LigarCampo(campo);
    platform::LayoutField lugar{.caption = &Legenda[c.indice], .field = &campo};
    if (c.indice == 0) {
      lugar.list = &btLista[textos_.listaViaturas];
      lugar.description = &Titulo[textos_.tituloMarca];
    } else if (const Referencia* referencia = ReferenciaDoCampo(c.indice)) {
      lugar.list = &btLista[referencia->lista];
      lugar.description = &Titulo[referencia->titulo];
    }
    linha.push_back(lugar);
  }
  layout.head.rows.push_back(linha);
}

void EventForm::LinhaDaData(platform::DTPicker& data, const char* legenda, const char* dica) {
  data.CustomFormat = textos_.formatoData;
  data.ToolTipText = dica;
  data.Change = [this] { Alterado = true; };
  LinhaDeControlo(data, legenda);
}

void EventForm::LinhaDeControlo(platform::Control& controlo, const char* legenda) {
  constexpr int kPrimeiraLegenda = 50;  // beyond the numbers of the fields
  const int indice = std::max(kPrimeiraLegenda, Legenda.UBound() + 1);
  TabBefore(controlo, botoes.btConf);
  Legenda.Add(*this, "Legenda", indice).Caption = legenda;
  layout.head.rows.push_back({{.caption = &Legenda[indice], .field = &controlo}});
}

void EventForm::LigarCampo(zor_input& campo) {
  const int indice = campo.Index();
  campo.Change = [this] { Alterado = true; };
  campo.Validate = [this, indice](bool& cancel) { Campo_Validate(indice, cancel); };
  campo.KeyPress = [this, indice](int& keyCode) { Campo_KeyPress(indice, keyCode); };
  campo.PedidoLista = [this, indice] { btLista_Click(indice); };
  campo.PedidoFicha = [this, indice] { Campo_PedidoFicha(indice); };
  campo.PedidoMapa = [this] {
    entidade_->bd = mybd;
    entidade_->MostraMapa();
  };
}

void EventForm::LigarEventos() {
  btArquivo.Click = [this] { btArquivo_Click(); };
  botoes.btConf.Click = [this] { btConf_Click(); };
  botoes.btCancelar.Click = [this] { Recomecar(); };
  botoes.btAnular.Click = [this] { btAnular_Click(); };
  botoes.btSair.Click = [this] { Unload(); };
  botoes.btNavega.Each([this](PushButton& button) {
    button.Click = [this, indice = button.Index()] { btNavega_Click(indice); };
  });
}

}  // namespace zorCrmParvel
