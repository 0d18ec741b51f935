#include "drivers/motoristas_form.h"

#include "drivers/licence_classes.h"
#include "drivers/motoristas_fields.h"
#include "platform/host.h"
#include "platform/text.h"

namespace zorCrmParvel {

using platform::Date;
using platform::Variant;
using platform::zor_input;

void Motoristas::Definir(std::string_view membro, const Variant& valor) {
  if (membro != "Edicao") return Ficha::Definir(membro, valor);
  Edicao(valor.ToBool());
}

void Motoristas::Form_Load() {
  for (const char* tipo : TiposCarta()) Combo1.List.emplace_back(tipo);
  Combo1.ListIndex = 0;
  UsaPessoal = false;
  Edicao_ = false;
  Limparform();
}

void Motoristas::FixarCodigo() {
  Campo[0].Enabled = !Edicao_;
  btLista[0].Enabled = !Edicao_;
}

void Motoristas::Limparform() {
  Campo.Each([](zor_input& campo) {
    if (campo.Index() != 0) campo.Text.clear();
  });
  DTPicker1.Each([](platform::DTPicker& data) { data.Value = platform::Today(); });
  Check1.Value = 0;
  if (UsaPessoal) {  // these belong to the personnel application
    for (int campo : {1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 15}) Campo[campo].Enabled = false;
    for (int data : {0, 1}) DTPicker1[data].Enabled = false;
    btLista[7].Enabled = false;
  }
  Act_Grelha();
  ShowImg1.Clear();
  SSTab1.Tab = 0;
  MostrarSeparador(0);
  FixarCodigo();
}

void Motoristas::CarregaFicha(const std::string& codigo) {
  Campo[0].Text = codigo;
  LerTudo();
  if (Edicao_) FixarCodigo();
  Campo[1].SetFocus();
}

/// Shows the driver of the code on the screen; false, and nothing changed, when there is none.
bool Motoristas::LerTudo() {
  motorista_.Codigo = Campo[0].Text;
  motorista_.bd = mybd;
  if (!motorista_.Ler()) return false;
  LerFicha();
  LerCartas();
  CarregaFoto();
  return true;
}

void Motoristas::LerFicha() {
  for (int i = 1; i <= Campo.UBound(); ++i)
    Campo[i].Text = motorista_.*kCamposDoMotorista[static_cast<std::size_t>(i)].propriedade;
  DTPicker1.Each([this](platform::DTPicker& picker) {
    const DataDoMotorista& dados = kDatasDoMotorista[static_cast<std::size_t>(picker.Index())];
    const Date data = motorista_.*dados.propriedade;
    picker.Value = dados.opcional ? HojeSeZero(data) : data;
  });
  Combo1.ListIndex = motorista_.TipoCartaCond;
  Check1.Value = motorista_.Inactivo == 1 ? 1 : 0;
}

void Motoristas::Gravar() {
  Campo.Each([this](zor_input& campo) {
    motorista_.*kCamposDoMotorista[static_cast<std::size_t>(campo.Index())].propriedade = campo.Text;
  });
  DTPicker1.Each([this](platform::DTPicker& picker) {
    const DataDoMotorista& dados = kDatasDoMotorista[static_cast<std::size_t>(picker.Index())];
    motorista_.*dados.propriedade = dados.opcional ? DataOuZero(picker) : picker.Value.ToDate();
  });
  motorista_.TipoCartaCond = static_cast<std::int16_t>(Combo1.ListIndex);
  motorista_.Inactivo = Check1.Value == 1 ? 1 : 0;
  motorista_.bd = mybd;
  motorista_.Escrever();
  GravarCartas();
  Limparform();
}

RegistoComFoto& Motoristas::RegistoDoEcra() {
  motorista_.bd = mybd;
  motorista_.Codigo = Campo[0].Text;
  return motorista_;
}

void Motoristas::Anular() {
  motorista_.bd = mybd;
  motorista_.Codigo = Campo[0].Text;
  if (!motorista_.Anular()) return;
  Limparform();
  Campo[0].SetFocus();
}

void Motoristas::Recomecar() {
  Edicao_ = false;
  Limparform();
  Campo[0].Text.clear();
  Campo[0].SetFocus();
}

void Motoristas::Navega(int indice, std::string& codigo) {
  Mover(motorista_, motorista_.Codigo, indice, codigo);
}

void Motoristas::btNavega_Click(int indice) {
  std::string codigo = Campo[0].Text;
  Navega(indice, codigo);
  Gravar();
  CarregaFicha(codigo);
}

void Motoristas::btConf_Click() {
  Gravar();
  Recomecar();
}

void Motoristas::btAnular_Click() {
  if (Continuar("Vai proceder à anulação do Motorista!", "Pretende continuar?")) Anular();
  Recomecar();
}

void Motoristas::btLista_Click(int indice) {
  motorista_.bd = mybd;
  const std::string codigo = motorista_.MostraLista();
  if (Campo[indice].Fits(codigo)) return Tomar(indice, codigo);
  Notify("«" + codigo + "» é mais comprido do que este campo.");
  Campo[indice].SetFocus();
}

void Motoristas::Campo_Validate(int indice, bool& cancel) {
  if (indice != 0) return;
  cancel = platform::Trim(Campo[0].Text).empty();
  if (cancel) return;
  if (UsaPessoal) {
    motorista_.bdSal = bdSal;
    motorista_.LerSal = true;
  }
  if (LerTudo()) return;
  if (UsaPessoal) {
    platform::MsgBox("Deve preencher o funcionário na aplicação de Pessoal");
    cancel = true;
  }
  Limparform();  // the code stays: this is how a new driver begins
}

void Motoristas::MostrarSeparador(int indice) {
  Frame5.Each([=](platform::Frame& frame) { frame.Visible = frame.Index() == indice; });
}

void Motoristas::SSTab1_Click() {
  MostrarSeparador(SSTab1.Tab);
  constexpr int kPrimeiroCampo[] = {-1, 17, 15, 18, 2};
  const int campo = kPrimeiroCampo[SSTab1.Tab];
  if (campo >= 0) Campo[campo].SetFocus();
}

}  // namespace zorCrmParvel
