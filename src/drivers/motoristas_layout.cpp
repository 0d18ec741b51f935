// How the driver's ficha is put together: its controls, their places and their events.
#include "drivers/motoristas_fields.h"
#include "drivers/motoristas_form.h"

namespace zorCrmParvel {

using platform::LayoutField;
using platform::zor_input;

enum Separador : int { kCabeca = -1, kIdentificacao, kCarta, kPassaporte, kCartao, kObservacoes };

Motoristas::Motoristas()
    : PhotoForm({}),
      Frame5(*this, "Frame5", 5),
      SSTab1(*this, "SSTab1"),
      Combo1(*this, "Combo1"),
      Check1(*this, "Check1"),
      Grelha(*this, "Grelha"),
      MonthView1(*this, "MonthView1"),
      btArquivo(*this, "btArquivo"),
      botoes(*this) {
  Name = "Motoristas";
  Caption = "Motoristas";
  ColocarFoto(btArquivo);
  for (int lista : {0, 7}) NovaLista(lista, "Lista de Acessórios.");
  LayoutField codigo = NovoCampo(0, kCabeca);
  codigo.list = &btLista[0];
  layout.head.rows = {{codigo}, {NovoCampo(1, kCabeca)}};
  TabBefore(SSTab1, PicAdd);
  SSTab1.Captions = {"Identificação", "Carta Condução", "Passaporte", "Cartão Condutor", "Observações"};
  layout.tabs = &SSTab1;
  layout.pages.resize(5);
  DisporIdentificacao();
  DisporDocumentos();
  btArquivo.Caption = "Ar&quivo";
  btArquivo.ToolTipText = "Arquivo digital.";
  btArquivo.TabStop = false;
  btArquivo.Click = [this] { AbrirArquivo(Campo[0].Text, 320); };
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

LayoutField Motoristas::NovoCampo(int indice, int separador) {
  const CampoDoMotorista& dados = kCamposDoMotorista[static_cast<std::size_t>(indice)];
  zor_input& campo = Campo.Add(*this, "Campo", indice);
  campo.ToolTipText = dados.dica;
  campo.maxlength = dados.maxlength;
  if (separador >= 0) campo.Container = &Frame5[separador];
  return ComLegenda(campo, dados.legenda);
}

LayoutField Motoristas::NovaData(int indice, int separador) {
  const DataDoMotorista& dados = kDatasDoMotorista[static_cast<std::size_t>(indice)];
  platform::DTPicker& data = DTPicker1.Add(*this, "DTPicker1", indice);
  data.ToolTipText = dados.dica;
  data.Optional = dados.opcional;
  data.Container = &Frame5[separador];
  return ComLegenda(data, dados.legenda);
}

void Motoristas::DisporIdentificacao() {
  const int s = kIdentificacao;
  layout.pages[s].rows = {{NovoCampo(3, s), NovoCampo(8, s)},   {NovoCampo(7, s), NovoCampo(13, s)},
                          {NovoCampo(6, s), NovoCampo(5, s)},   {NovoCampo(4, s), NovaData(0, s)},
                          {NovoCampo(9, s), NovoCampo(10, s)},  {NovaData(1, s), NovaData(7, s)},
                          {NovoCampo(11, s), NovoCampo(12, s)}, {NovaData(2, s), ComLegenda(Check1, "")}};
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
  layout.pages[kCarta].rows = {{NovoCampo(17, kCarta)},
                               {ComLegenda(Combo1, "Tipo")},
                               {NovaData(3, kCarta)},
                               {NovaData(4, kCarta)},
                               {NovoCampo(14, kCarta)}};
  TabBefore(Grelha, PicAdd);
  TabBefore(MonthView1, PicAdd);
  layout.pages[kPassaporte].rows = {{NovoCampo(15, kPassaporte)},
                                    {NovaData(5, kPassaporte)},
                                    {NovaData(6, kPassaporte)},
                                    {NovoCampo(16, kPassaporte)}};
  layout.pages[kCartao].rows = {{NovoCampo(18, kCartao)},
                                {NovoCampo(19, kCartao)},
                                {NovaData(8, kCartao)},
                                {NovaData(9, kCartao)},
                                {NovaData(10, kCartao)}};
  layout.pages[kObservacoes].rows = {{NovoCampo(2, kObservacoes)}};
  Campo[2].tipo_campo = 1;
}

void Motoristas::LigarEventos() {
  Campo.Each([this](zor_input& campo) {
    const int indice = campo.Index();
    campo.Validate = [this, indice](bool& cancel) { Campo_Validate(indice, cancel); };
    campo.KeyPress = [this, indice](int& keyCode) { Recuar(indice, keyCode); };
    campo.PedidoLista = [this, indice] { btLista_Click(indice); };
    campo.PedidoMapa = [this] {
      motorista_.bd = mybd;
      motorista_.MostraMapa();
    };
  });
  SSTab1.Click = [this](int) { SSTab1_Click(); };
  LigarBotoes(botoes);
}

}  // namespace zorCrmParvel
