// How the driver's ficha is put together: its controls, their places and their events.
#include "drivers/motoristas_form.h"
#include "platform/host.h"

namespace zorCrmParvel {

using platform::LayoutField;
using platform::zor_input;

enum Separador : int { kCabeca = -1, kIdentificacao, kCarta, kPassaporte, kCartao, kObservacoes };

Motoristas::Motoristas()
    : Frame5(*this, "Frame5", 5),
      SSTab1(*this, "SSTab1"),
      Combo1(*this, "Combo1"),
      Check1(*this, "Check1"),
      Grelha(*this, "Grelha"),
      MonthView1(*this, "MonthView1"),
      ShowImg1(*this, "ShowImg1"),
      PicAdd(*this, "PicAdd"),
      PicDel(*this, "PicDel"),
      btArquivo(*this, "btArquivo"),
      botoes(*this) {
  Name = "Motoristas";
  Caption = "Motoristas";
  for (int lista : {0, 7}) {
    platform::PushButton& button = btLista.Add(*this, "btLista", lista);
    button.Caption = "…";
    button.ToolTipText = "Lista de Acessórios.";
    button.TabStop = false;
  }
  LayoutField codigo = NovoCampo(0, kCabeca, "Código", "Motorista.", 10);
  codigo.list = &btLista[0];
  layout.head.rows = {{codigo}, {NovoCampo(1, kCabeca, "Nome", "Nome do Motorista.", 60)}};
  layout.head.picture = &ShowImg1;
  layout.head.buttons = {&PicAdd, &PicDel};
  PicAdd.Caption = "&Foto…";
  PicAdd.ToolTipText = "Adicionar a fotografia.";
  PicDel.Caption = "Remover foto";
  PicDel.ToolTipText = "Remover a fotografia.";
  TabBefore(SSTab1, PicAdd);
  SSTab1.Captions = {"Identificação", "Carta Condução", "Passaporte", "Cartão Condutor", "Observações"};
  layout.tabs = &SSTab1;
  layout.pages.resize(5);
  DisporIdentificacao();
  DisporDocumentos();
  btArquivo.Caption = "Ar&quivo";
  btArquivo.ToolTipText = "Arquivo digital.";
  for (platform::PushButton* button : {&PicAdd, &PicDel, &btArquivo}) button->TabStop = false;
  botoes.Dispor(layout);
  layout.tools = {&btArquivo};
  LigarEventos();
  LigarGrelha();
}

LayoutField Motoristas::ComLegenda(platform::Control& controlo, const char* legenda) {
  TabBefore(controlo, PicAdd);
  platform::Label& rotulo = Legenda.Add(*this, "Legenda", Legenda.UBound() + 1);
  rotulo.Caption = legenda;
  rotulo.Container = controlo.Container;
  return {.caption = &rotulo, .field = &controlo};
}

LayoutField Motoristas::NovoCampo(int indice, int separador, const char* legenda, const char* dica,
                                  int maxlength) {
  zor_input& campo = Campo.Add(*this, "Campo", indice);
  campo.ToolTipText = dica;
  campo.maxlength = maxlength;
  if (separador >= 0) campo.Container = &Frame5[separador];
  return ComLegenda(campo, legenda);
}

LayoutField Motoristas::NovaData(int indice, int separador, const char* legenda, const char* dica) {
  platform::DTPicker& data = DTPicker1.Add(*this, "DTPicker1", indice);
  data.ToolTipText = dica;
  data.Container = &Frame5[separador];
  return ComLegenda(data, legenda);
}

void Motoristas::DisporIdentificacao() {
  const int s = kIdentificacao;
  layout.pages[s].rows = {
      {NovoCampo(3, s, "Morada", "Morada.", 50), NovoCampo(8, s, "Localidade", "Localidade.", 40)},
      {NovoCampo(7, s, "Código Postal", "Código Postal.", 8), NovoCampo(13, s, "NIF", "NIF.", 13)},
      {NovoCampo(6, s, "Telefone", "Telefone.", 20), NovoCampo(5, s, "Telemóvel", "Telemóvel.", 20)},
      {NovoCampo(4, s, "E-mail", "e-mail.", 50), NovaData(0, s, "Data Nascimento", "Data Nascimento.")},
      {NovoCampo(9, s, "BI", "BI.", 13), NovoCampo(10, s, "Local Emissão", "Local Emissão do BI.", 20)},
      {NovaData(1, s, "Data Emissão", "Data Emissão BI."), NovaData(7, s, "Data Val.", "Data Emissão BI.")},
      {NovoCampo(11, s, "Cartão Cidadão", "Cartão Cidadão.", 13),
       NovoCampo(12, s, "Local Emissão", "Local Emissão.", 20)},
      {NovaData(2, s, "Data Emissão", "Data Emissão do Cartão Cidadão."), ComLegenda(Check1, "")}};
  layout.pages[s].rows[1][0].list = &btLista[7];
  Check1.Caption = "Inactivo";
  Check1.Container = &Frame5[s];
}

void Motoristas::DisporDocumentos() {
  for (platform::Control* control :
       {static_cast<platform::Control*>(&Combo1), static_cast<platform::Control*>(&Grelha),
        static_cast<platform::Control*>(&MonthView1)})
    control->Container = &Frame5[kCarta];
  layout.pages[kCarta].grid = &Grelha;
  layout.pages[kCarta].calendar = &MonthView1;
  layout.pages[kCarta].fieldsFirst = true;
  layout.pages[kCarta].rows = {{NovoCampo(17, kCarta, "Carta Condução", "No. Carta de Condução.", 13)},
                               {ComLegenda(Combo1, "Tipo")},
                               {NovaData(3, kCarta, "Data Emissão", "Data de Emissão.")},
                               {NovaData(4, kCarta, "Validade", "Validade.")},
                               {NovoCampo(14, kCarta, "DGV", "DGV responsável.", 20)}};
  TabBefore(Grelha, PicAdd);
  TabBefore(MonthView1, PicAdd);
  layout.pages[kPassaporte].rows = {{NovoCampo(15, kPassaporte, "Passaporte", "No. Passaporte.", 13)},
                                    {NovaData(5, kPassaporte, "Data Emissão", "Data de Emissão.")},
                                    {NovaData(6, kPassaporte, "Validade", "Validade.")},
                                    {NovoCampo(16, kPassaporte, "Local Emissão", "Local de Emissão.", 20)}};
  layout.pages[kCartao].rows = {{NovoCampo(18, kCartao, "No. Cartão", "No.cartão condutor.", 16)},
                                {NovoCampo(19, kCartao, "Emissora", "Emissora do cartão condutor.", 20)},
                                {NovaData(8, kCartao, "Data Início", "Data Início.")},
                                {NovaData(9, kCartao, "Data de Fim", "Data de Fim.")},
                                {NovaData(10, kCartao, "Próxima Descarga", "Próxiima data de descarga.")}};
  layout.pages[kObservacoes].rows = {{NovoCampo(2, kObservacoes, "Obs.", "Obs.", 150)}};
  Campo[2].tipo_campo = 1;
  for (int data : {5, 6, 8, 9, 10}) DTPicker1[data].Optional = true;
}

void Motoristas::LigarEventos() {
  Campo.Each([this](zor_input& campo) {
    const int indice = campo.Index();
    campo.Change = [this] { Alterado_ = true; };
    campo.Validate = [this, indice](bool& cancel) { Campo_Validate(indice, cancel); };
    campo.KeyPress = [this, indice](int& keyCode) { Campo_KeyPress(indice, keyCode); };
    campo.PedidoLista = [this, indice] { btLista_Click(indice); };
    campo.PedidoMapa = [this] {
      motorista_.bd = mybd;
      motorista_.MostraMapa();
    };
  });
  DTPicker1.Each([this](platform::DTPicker& data) { data.Change = [this] { Alterado_ = true; }; });
  Combo1.Change = Combo1.Click = Check1.Click = [this] { Alterado_ = true; };
  SSTab1.Click = [this](int) { SSTab1_Click(); };
  btLista.Each([this](platform::PushButton& button) {
    button.Click = [this, indice = button.Index()] { btLista_Click(indice); };
  });
  PicAdd.Click = [this] { AdicionarFoto(); };
  PicDel.Click = [this] {
    motorista_.bd = mybd;
    motorista_.Codigo = Campo[0].Text;
    if (motorista_.Foto_Del()) ShowImg1.Clear();
  };
  btArquivo.Click = [this] { btArquivo_Click(); };
  botoes.btConf.Click = [this] {
    Gravar();
    Recomecar();
  };
  botoes.btCancelar.Click = [this] { Recomecar(); };
  botoes.btAnular.Click = [this] { btAnular_Click(); };
  botoes.btSair.Click = [this] { Unload(); };
  botoes.btNavega.Each([this](platform::PushButton& button) {
    button.Click = [this, indice = button.Index()] { btNavega_Click(indice); };
  });
}

void Motoristas::AdicionarFoto() {
  const auto ficheiro =
      platform::Host::Current().OpenFile({.Filter = "Ficheiros Jpg (*.jpg; )|*.jpg", .Title = ""});
  if (!ficheiro || ficheiro->empty()) return;
  motorista_.bd = mybd;
  motorista_.Codigo = Campo[0].Text;
  motorista_.Foto_Add(*ficheiro);
  CarregaFoto();
}

void Motoristas::CarregaFoto() {
  ShowImg1.Clear();
  motorista_.bd = mybd;
  const std::string foto = motorista_.Foto_Get();
  if (foto.empty()) return;
  ShowImg1.FileName = foto;
  ShowImg1.Load();
}

}  // namespace zorCrmParvel
