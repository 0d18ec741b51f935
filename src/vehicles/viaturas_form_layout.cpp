// How the vehicle's ficha is put together: its controls, their places and their events.
#include "vehicles/viaturas_fields.h"
#include "vehicles/viaturas_form.h"
#include "vehicles/viaturas_tabs.h"

namespace zorCrmParvel {

using platform::LayoutField;
using platform::PushButton;
using platform::zor_input;

namespace {

constexpr int kCabeca = -1;  // above the tabs, always in sight

void DarFormato(zor_input& campo, Escrita escrita) {
  if (escrita == Escrita::kNotas) campo.tipo_campo = 1;
  if (escrita == Escrita::kAno || escrita == Escrita::kKm) campo.formato_campo = zor_input::kInteiro;
  if (escrita == Escrita::kKm) campo.formato = "###,##0";
  if (escrita != Escrita::kValor) return;
  campo.formato_campo = zor_input::kNumero;
  campo.formato = "###,###.#0";
}

}  // namespace

Viaturas::Viaturas()
    : PhotoForm(kReferenciasDaViatura),
      SSTab1(*this, "SSTab1"),
      Combo1(*this, "Combo1"),
      Combo2(*this, "Combo2"),
      Check1(*this, "Check1"),
      Check2(*this, "Check2"),
      chkBxSeloPago(*this, "chkBxSeloPago"),
      Grelha(*this, "Grelha"),
      GrelhaManut(*this, "GrelhaManut"),
      GrelhaInsp(*this, "GrelhaInsp"),
      GrelhaAces(*this, "GrelhaAces"),
      GrelhaGst(*this, "GrelhaGst"),
      GrelhaSin(*this, "GrelhaSin"),
      GrelhaMul(*this, "GrelhaMul"),
      zorBotao1(*this, "zorBotao1"),
      zorBotao2(*this, "zorBotao2"),
      zorBotao3(*this, "zorBotao3"),
      zorBotao4(*this, "zorBotao4"),
      zorBotao5(*this, "zorBotao5"),
      PushButton1(*this, "PushButton1"),
      PushButton2(*this, "PushButton2"),
      botoes(*this) {
  Name = "Viaturas";
  Caption = "Viaturas";
  ColocarFoto(botoes.btConf);
  SSTab1.Captions = {"Identificação", "DUC",    "Apólices",  "Leasing", "Revisões", "Inspecção",
                     "Acessórios",    "Gastos", "Sinistros", "Multas",  "Obs"};
  int separador = 0;
  for (const char* frame : {"Frame4", "Frame5", "Frame6", "Frame3", "Frame11", "Frame9", "Frame7", "Frame8",
                            "Frame13", "Frame14", "Frame10"})
    Separador.Add(*this, frame, separador++);
  for (int titulo : {2, 13, 14, 15, 16, 27, 34, 51, 63, 64, 67}) Titulo.Add(*this, "Titulo", titulo);
  for (int lista : {0, 1, 9, 10, 12, 13, 20}) {
    const Referencia* referencia = ReferenciaDoCampo(lista);
    NovaLista(lista, referencia != nullptr ? referencia->dicaLista : lista == 0 ? "Lista de Viaturas." : "");
  }
  btArquivo = {*this, "btArquivo", 9};
  btArquivo.Each([](PushButton& button) {
    button.Caption = "Ar&quivo";
    button.ToolTipText = "Arquivo digital.";
  });
  layout.tabs = &SSTab1;
  layout.pages.resize(SSTab1.Captions.size());
  DisporCabeca();
  DisporViatura();
  DisporEventos();
  botoes.Dispor(layout);
  LigarCampos();
  LigarEventos();
}

/// Puts a control behind those placed before it, on a tab or above all of them.
LayoutField Viaturas::Colocar(platform::Control& controlo, const char* legenda, int separador) {
  controlo.Container = separador == kCabeca ? nullptr : &Separador[separador];
  TabBefore(controlo, botoes.btConf);
  if (legenda == nullptr) return {.field = &controlo};
  platform::Label& rotulo = Legenda.Add(*this, "Legenda", Legenda.UBound() + 1);
  rotulo.Caption = legenda;
  rotulo.Container = controlo.Container;
  return {.caption = &rotulo, .field = &controlo};
}

LayoutField Viaturas::NovoCampo(int indice, int separador) {
  const CampoDaViatura& dados = CampoNoLugar(indice);
  zor_input& campo = Campo.Add(*this, "Campo", indice);
  campo.maxlength = dados.maxlength;
  campo.Enabled = campo.TabStop = !dados.calculado;
  DarFormato(campo, dados.escrita);
  LayoutField lugar = Colocar(campo, dados.legenda, separador);
  if (btLista.Has(indice)) {
    lugar.list = &btLista[indice];
    lugar.list->Container = campo.Container;
  }
  if (const Referencia* referencia = ReferenciaDoCampo(indice))
    lugar.description = &Titulo[referencia->titulo];
  if (indice == 9) lugar.description = &Titulo[16];
  if (lugar.description != nullptr) lugar.description->Container = campo.Container;
  return lugar;
}

LayoutField Viaturas::NovaData(int indice, int separador) {
  const DataDaViatura& dados = DataNoLugar(indice);
  platform::DTPicker& data = DTPicker1.Add(*this, "DTPicker1", indice);
  data.CustomFormat = "dd-mm-yyyy";
  data.Optional = dados.opcional;
  return Colocar(data, dados.legenda, separador);
}

/// What an event is shown in: read only, but where it is the vehicle's own.
LayoutField Viaturas::NovoDetalhe(const Detalhe& detalhe, int separador) {
  platform::Control* controlo = &Combo1;
  switch (detalhe.onde) {
    case Detalhe::kDaViatura:
      return NovoCampo(detalhe.indice, separador);
    case Detalhe::kDataDaViatura:
      return NovaData(detalhe.indice, separador);
    case Detalhe::kLinha:
      Titulo[detalhe.indice].Container = &Separador[separador];
      return {.description = &Titulo[detalhe.indice]};
    case Detalhe::kCampo: {
      zor_input& campo = Campo.Add(*this, "Campo", detalhe.indice);
      DarFormato(campo, detalhe.escrita);
      controlo = &campo;
      break;
    }
    case Detalhe::kData: {
      platform::DTPicker& data = DTPicker1.Add(*this, "DTPicker1", detalhe.indice);
      data.CustomFormat = detalhe.formato;
      controlo = &data;
      break;
    }
    case Detalhe::kModalidade:
      break;
  }
  controlo->Enabled = controlo->TabStop = false;
  return Colocar(*controlo, detalhe.legenda, separador);
}

void Viaturas::DisporCabeca() {
  Check1.Caption = "Inactiva";
  layout.head.rows = {{NovoCampo(0, kCabeca), Colocar(Check1, nullptr, kCabeca)},
                      {NovoCampo(1, kCabeca)},
                      {NovoCampo(12, kCabeca)}};
  TabBefore(SSTab1, botoes.btConf);
}

void Viaturas::DisporViatura() {
  int s = kIdentificacao;
  const auto c = [&](int indice) { return NovoCampo(indice, s); };
  const auto d = [&](int indice) { return NovaData(indice, s); };
  Check2.Caption = "Tacógrafo Digital";
  layout.pages[kIdentificacao].rows = {
      {c(10), c(13)},     {c(11), c(9)}, {c(3), d(1), c(23)},
      {c(8), c(7), c(4)}, {c(6), c(5)},  {Colocar(Check2, nullptr, s), d(12)},
  };
  s = kDUC;
  chkBxSeloPago.Caption = "Liquidado";
  layout.pages[kDUC].rows = {
      {d(3), c(24)},
      {c(43), c(17)},
      {c(14), Colocar(Combo2, "Combustível", s)},
      {d(13), Colocar(chkBxSeloPago, nullptr, s)},
  };
  s = kLeasing;
  layout.pages[kLeasing].rows = {{c(20)}, {c(2), d(0)}, {c(19), c(21), c(22)}};
  const int arquivos[][2] = {{kDUC, 0}, {kLeasing, 2}};
  for (const auto& [pagina, indice] : arquivos) {
    Colocar(btArquivo[indice], nullptr, pagina);
    layout.pages[static_cast<std::size_t>(pagina)].buttons = {&btArquivo[indice]};
  }
}

void Viaturas::DisporEventos() {
  for (const SeparadorDeEventos& separador : SeparadoresDeEventos()) {
    platform::SGGrid& grelha = this->*separador.grelha;
    Colocar(grelha, nullptr, separador.indice);
    layout.pages[static_cast<std::size_t>(separador.indice)].grid = &grelha;
  }
  for (int indice = kIdentificacao; indice < kObs; ++indice)  // in the order of the tabs, as the keys go
    for (const SeparadorDeEventos& separador : SeparadoresDeEventos())
      if (separador.indice == indice) DisporDetalhes(separador);
  layout.pages[kObs].rows = {{NovoCampo(16, kObs)}};
  for (const SeparadorDeEventos& separador : SeparadoresDeEventos()) {
    PushButton& editar = this->*separador.editar;
    PushButton& arquivo = btArquivo[separador.arquivo];
    editar.Caption = "&Editar";
    Colocar(editar, nullptr, separador.indice);
    Colocar(arquivo, nullptr, separador.indice);
    layout.pages[static_cast<std::size_t>(separador.indice)].buttons = {&editar, &arquivo};
    zor_input& chave = Campo.Add(*this, "Campo", separador.campoId);
    chave.Enabled = chave.TabStop = chave.Visible = false;
    Colocar(chave, nullptr, separador.indice);
  }
}

void Viaturas::DisporDetalhes(const SeparadorDeEventos& separador) {
  for (const auto& linha : separador.detalhes) {
    auto& lugares = layout.pages[static_cast<std::size_t>(separador.indice)].rows.emplace_back();
    for (const Detalhe& detalhe : linha) lugares.push_back(NovoDetalhe(detalhe, separador.indice));
  }
}

void Viaturas::LigarCampos() {
  Campo.Each([this](zor_input& campo) {
    const int indice = campo.Index();
    campo.Validate = [this, indice](bool& cancel) { Campo_Validate(indice, cancel); };
    campo.KeyPress = [this, indice](int& keyCode) { Recuar(indice, keyCode); };
    campo.PedidoFicha = [this, indice] { Campo_PedidoFicha(indice); };
    if (btLista.Has(indice)) campo.PedidoLista = [this, indice] { btLista_Click(indice); };
  });
  DTPicker1[3].Change = [this] {
    CalculaDataSelo();
    MostrarProximaInspecao();
  };
  Combo2.KeyPress = [this](int& keyCode) {
    if (keyCode == platform::kKeyEscape) Unload();
  };
}

void Viaturas::LigarEventos() {
  SSTab1.Click = [this](int) { SSTab1_Click(); };
  for (const SeparadorDeEventos& separador : SeparadoresDeEventos()) LigarSeparador(separador);
  btArquivo.Each([this](PushButton& button) {
    button.Click = [this, indice = button.Index()] { btArquivo_Click(indice); };
  });
  LigarBotoes(botoes);
}

void Viaturas::LigarSeparador(const SeparadorDeEventos& separador) {
  platform::SGGrid& grelha = this->*separador.grelha;
  grelha.RowChange = [this, &separador](long linha) { LinhaEscolhida(separador, linha); };
  grelha.GotFocus = [this, &grelha] {
    if (aRegressar_) return;
    grelha.SetRow(1);  // moves on and back, so that the first row is shown even when it was the current one
    grelha.SetRow(0);
  };
  (this->*separador.editar).Click = [this, &separador] { Editar(separador); };
}

}  // namespace zorCrmParvel
