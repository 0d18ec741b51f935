// How an event ficha is put together: its controls, their places and their events.
#include "events/event_form.h"

#include <algorithm>

#include "platform/runtime_error.h"

namespace zorCrmParvel {

using platform::zor_input;

EventForm::EventForm(const FichaDeEvento& tipo, std::unique_ptr<EventEntity> entidade)
    : RecordForm(tipo.referencias),
      DTPicker1(*this, "DTPicker1"),
      btArquivo(*this, "btArquivo"),
      botoes(*this),
      tipo_(tipo),
      entidade_(std::move(entidade)) {
  Name = tipo.textos.nome;
  Caption = tipo.textos.legenda;
  NovaLista(0, tipo.textos.dicaLista).Caption = "&Lista";
  NovaLista(tipo.listaViaturas, "Lista de Viaturas.");
  Titulo.Add(*this, "Titulo", tipo.tituloMarca);
  for (const Referencia& referencia : tipo.referencias) {
    NovaLista(referencia.lista, referencia.dicaLista);
    Titulo.Add(*this, "Titulo", referencia.titulo);
  }
  btArquivo.Caption = "Ar&quivo";
  btArquivo.ToolTipText = "Arquivo digital.";
  btArquivo.TabStop = false;
  btArquivo.Click = [this] { AbrirArquivo(Campo[0].Text, tipo_.classeArquivo); };
  botoes.Dispor(layout);
  LigarBotoes(botoes);
  layout.tools = {&btLista[0], &btArquivo};
}

void EventForm::LinhaDaMatricula() { Linha({{kMatricula, "Matrícula", "Matrícula da Viatura.", 10}}); }

CampoDoEvento EventForm::Texto(int indice, const char* legenda, const char* dica, int maxlength,
                               std::string& propriedade) {
  return {indice, legenda, dica, maxlength, &propriedade};
}

CampoDoEvento EventForm::Numero(int indice, const char* legenda, const char* dica,
                                platform::Currency& propriedade, const char* mascara) {
  return {indice, legenda, dica, 10, nullptr, &propriedade, zor_input::kNumero, mascara};
}

CampoDoEvento EventForm::Inteiro(int indice, const char* legenda, const char* dica,
                                 platform::Currency& propriedade) {
  return {indice, legenda, dica, 10, nullptr, &propriedade, zor_input::kInteiro, "###,##0"};
}

void EventForm::Linha(const std::vector<CampoDoEvento>& campos) {
  platform::LayoutRow linha;
  for (const CampoDoEvento& c : campos) {
    campos_.push_back(c);
    zor_input& campo = Campo.Add(*this, "Campo", c.indice);
    TabBefore(campo, botoes.btConf);
    Legenda.Add(*this, "Legenda", c.indice).Caption = c.legenda;
    campo.ToolTipText = c.dica;
    campo.maxlength = c.maxlength;
    campo.formato_campo = c.formato;
    campo.formato = c.mascara;
    LigarCampo(campo);
    platform::LayoutField lugar{.caption = &Legenda[c.indice], .field = &campo};
    if (c.indice == kMatricula) {
      lugar.list = &btLista[tipo_.listaViaturas];
      lugar.description = &Titulo[tipo_.tituloMarca];
    } else if (const Referencia* referencia = ReferenciaDoCampo(c.indice)) {
      lugar.list = &btLista[referencia->lista];
      lugar.description = &Titulo[referencia->titulo];
    }
    linha.push_back(lugar);
  }
  layout.head.rows.push_back(linha);
}

void EventForm::LinhaDaData(platform::DTPicker& data, const char* legenda, const char* dica) {
  data.CustomFormat = tipo_.formatoData;
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

}  // namespace zorCrmParvel
