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
    : SSTab1(*this, "SSTab1"),
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
      ShowImg1(*this, "ShowImg1"),
      PicAdd(*this, "PicAdd"),
      PicDel(*this, "PicDel"),
      botoes(*this) {
  Name = "Viaturas";
  Caption = "Viaturas";
  SSTab1.Captions = {"Identificação", "DUC",    "Apólices",  "Leasing", "Revisões", "Inspecção",
                     "Acessórios",    "Gastos", "Sinistros", "Multas",  "Obs"};
  int separador = 0;
  for (const char* frame : {"Frame4", "Frame5", "Frame6", "Frame3", "Frame11", "Frame9", "Frame7", "Frame8",
                            "Frame13", "Frame14", "Frame10"})
    Separador.Add(*this, frame, separador++);
  for (int titulo : {2, 13, 14, 15, 16, 27, 34, 51, 63, 64, 67}) Titulo.Add(*this, "Titulo", titulo);
  for (int lista : {0, 1, 9, 10, 12, 13, 20}) {
    PushButton& button = btLista.Add(*this, "btLista", lista);
    const CodigoDaViatura* codigo = CodigoDoCampo(lista);
    button.Caption = "…";
    button.ToolTipText = codigo != nullptr ? codigo->dicaLista : lista == 0 ? "Lista de Viaturas." : "";
    button.TabStop = false;
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
  const CampoDaViatura& dados = kCamposDaViatura[static_cast<std::size_t>(indice)];
  zor_input& campo = Campo.Add(*this, "Campo", indice);
  campo.maxlength = dados.maxlength;
  campo.Enabled = campo.TabStop = dados.activo;
  DarFormato(campo, dados.escrita);
  LayoutField lugar = Colocar(campo, dados.legenda, separador);
  if (btLista.Has(indice)) {
    lugar.list = &btLista[indice];
    lugar.list->Container = campo.Container;
  }
  if (const CodigoDaViatura* codigo = CodigoDoCampo(indice)) lugar.description = &Titulo[codigo->titulo];
  if (indice == 9) lugar.description = &Titulo[16];
  if (lugar.description != nullptr) lugar.description->Container = campo.Container;
  return lugar;
}

LayoutField Viaturas::NovaData(int indice, int separador) {
  const DataDaViatura& dados = kDatasDaViatura[static_cast<std::size_t>(indice)];
  platform::DTPicker& data = DTPicker1.Add(*this, "DTPicker1", indice);
  data.CustomFormat = dados.formato;
  data.Optional = dados.opcional;
  data.Enabled = data.TabStop = dados.activo;
  return Colocar(data, dados.legenda, separador);
}

void Viaturas::DisporCabeca() {
  Check1.Caption = "Inactiva";
  layout.head.rows = {{NovoCampo(0, kCabeca), Colocar(Check1, nullptr, kCabeca)},
                      {NovoCampo(1, kCabeca)},
                      {NovoCampo(12, kCabeca)}};
  TabBefore(SSTab1, botoes.btConf);
  PicAdd.Caption = "&Foto…";
  PicAdd.ToolTipText = "Adicionar a fotografia.";
  PicDel.Caption = "Remover foto";
  PicDel.ToolTipText = "Remover a fotografia.";
  PicAdd.TabStop = PicDel.TabStop = false;
  layout.head.picture = &ShowImg1;
  layout.head.buttons = {&PicAdd, &PicDel};
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
  DisporDetalhes();
  for (const SeparadorDeEventos& separador : SeparadoresDeEventos()) {
    PushButton& editar = this->*separador.editar;
    PushButton& arquivo = btArquivo[separador.arquivo];
    editar.Caption = "&Editar";
    Colocar(editar, nullptr, separador.indice);
    Colocar(arquivo, nullptr, separador.indice);
    layout.pages[static_cast<std::size_t>(separador.indice)].buttons = {&editar, &arquivo};
    NovoCampo(separador.campoId, separador.indice).field->Visible = false;
  }
}

void Viaturas::DisporDetalhes() {
  int s = 0;
  const auto c = [&](int indice) { return NovoCampo(indice, s); };
  const auto d = [&](int indice) { return NovaData(indice, s); };
  const auto t = [&](int indice) {
    Titulo[indice].Container = &Separador[s];
    return LayoutField{.description = &Titulo[indice]};
  };
  auto& paginas = layout.pages;
  s = kApolices;
  Combo1.Enabled = Combo1.TabStop = false;
  paginas[kApolices].rows = {{c(25)},        {c(26)}, {c(15)}, {d(5)}, {Colocar(Combo1, "Modalidade", s)},
                             {c(27), c(28)}, {t(64)}};
  s = kRevisoes;
  paginas[kRevisoes].rows = {{c(50)}, {d(7)}, {c(51), c(52)}, {c(54)}, {c(53)}, {d(8)}};
  s = kInspeccao;
  paginas[kInspeccao].rows = {{d(6)}, {c(46), c(47)}, {c(45)}, {d(9)}, {t(67)}, {t(63)}};
  s = kAcessorios;
  paginas[kAcessorios].rows = {{c(30)},        {c(18), c(29)}, {d(2)}, {c(31), c(34)},
                               {c(32), c(33)}, {c(35)},        {t(2)}, {t(51)}};
  s = kGastos;
  paginas[kGastos].rows = {{c(44)}, {d(4)}, {c(39)}, {c(38), c(40)}, {c(42)}};
  s = kSinistros;
  paginas[kSinistros].rows = {{c(55)}, {d(10)}, {c(57)}, {c(58)}};
  s = kMultas;
  paginas[kMultas].rows = {{c(59)}, {d(11)}, {c(62)}, {c(60)}};
  s = kObs;
  paginas[kObs].rows = {{c(16)}};
}

void Viaturas::LigarCampos() {
  Campo.Each([this](zor_input& campo) {
    const int indice = campo.Index();
    campo.Validate = [this, indice](bool& cancel) { Campo_Validate(indice, cancel); };
    campo.KeyPress = [this, indice](int& keyCode) { Campo_KeyPress(indice, keyCode); };
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
  btLista.Each([this](PushButton& button) {
    button.Click = [this, indice = button.Index()] { btLista_Click(indice); };
  });
  btArquivo.Each([this](PushButton& button) {
    button.Click = [this, indice = button.Index()] { btArquivo_Click(indice); };
  });
  PicAdd.Click = [this] { AdicionarFoto(); };
  PicDel.Click = [this] { PicDel_Click(); };
  botoes.btConf.Click = [this] {
    Gravar();
    Edicao = false;
    Recomecar();
  };
  botoes.btCancelar.Click = [this] { Recomecar(); };
  botoes.btAnular.Click = [this] { btAnular_Click(); };
  botoes.btSair.Click = [this] { Unload(); };
  botoes.btNavega.Each([this](PushButton& button) {
    button.Click = [this, indice = button.Index()] { btNavega_Click(indice); };
  });
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
