#include "drivers/motoristas_form.h"

#include "drivers/licence_classes.h"
#include "host/tools.h"
#include "platform/format.h"
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
  Alterado_ = false;
  ShowImg1.Clear();
  SSTab1.Tab = 0;
  Escondeframes5();
  Frame5[0].Visible = true;
  FixarCodigo();
}

void Motoristas::CarregaFicha(const std::string& codigo) {
  Campo[0].Text = codigo;
  motorista_.Codigo = codigo;
  motorista_.bd = mybd;
  if (motorista_.Ler()) {
    LerFicha();
    LerCartas();
    CarregaFoto();
  }
  if (Edicao_) FixarCodigo();
  Campo[1].SetFocus();
}

void Motoristas::MostrarData(int indice, Date data) { DTPicker1[indice].Value = data; }

void Motoristas::MostrarDataOuHoje(int indice, Date data) {
  MostrarData(indice, data.IsZero() ? platform::Today() : data);
}

void Motoristas::LerFicha() {
  const clMotoristas& m = motorista_;
  const std::string* const textos[] = {nullptr,
                                       &m.Descrição,
                                       &m.Obs,
                                       &m.Morada,
                                       &m.Email,
                                       &m.Telemovel,
                                       &m.Telefone,
                                       &m.CodPostal,
                                       &m.Localidade,
                                       &m.BI,
                                       &m.EmissaoBI,
                                       &m.CartaoCid,
                                       &m.LocalCid,
                                       &m.NIF,
                                       &m.DGV,
                                       &m.Passaporte,
                                       &m.LocalPassa,
                                       &m.CartaCond,
                                       &m.NoCartaoCondutor,
                                       &m.EmissoraCartaoCondutor};
  for (int i = 1; i <= Campo.UBound(); ++i) Campo[i].Text = *textos[i];
  MostrarData(0, m.DataNasc);
  MostrarData(1, m.DataBI);
  MostrarData(2, m.ValCartaoCid);
  MostrarData(3, m.DataCartaCond);
  MostrarData(4, m.ValCartaCond);
  MostrarDataOuHoje(5, m.DataPassa);
  MostrarDataOuHoje(6, m.ValidadePassa);
  MostrarData(7, m.DataValBI);
  MostrarDataOuHoje(8, m.DtInicioCartaoCondutor);
  MostrarDataOuHoje(9, m.DtFimCartaoCondutor);
  MostrarDataOuHoje(10, m.DtDescarga);
  Combo1.ListIndex = m.TipoCartaCond;
  Check1.Value = m.Inactivo == 1 ? 1 : 0;
}

Date Motoristas::DataOuZero(int indice) const {
  const Variant& valor = DTPicker1[indice].Value;
  return valor.IsNull() ? Date() : valor.ToDate();
}

void Motoristas::Gravar() {
  clMotoristas& m = motorista_;
  m.Codigo = Campo[0].Text;
  m.Descrição = Campo[1].Text;
  m.Obs = Campo[2].Text;
  m.Morada = Campo[3].Text;
  m.Email = Campo[4].Text;
  m.Telemovel = Campo[5].Text;
  m.Telefone = Campo[6].Text;
  m.CodPostal = Campo[7].Text;
  m.Localidade = Campo[8].Text;
  m.BI = Campo[9].Text;
  m.EmissaoBI = Campo[10].Text;
  m.CartaoCid = Campo[11].Text;
  m.LocalCid = Campo[12].Text;
  m.NIF = Campo[13].Text;
  m.DGV = Campo[14].Text;
  m.Passaporte = Campo[15].Text;
  m.LocalPassa = Campo[16].Text;
  m.CartaCond = Campo[17].Text;
  m.DataNasc = DTPicker1[0].Value.ToDate();
  m.DataBI = DTPicker1[1].Value.ToDate();
  m.ValCartaoCid = DTPicker1[2].Value.ToDate();  // the picker that names the issue date holds the validity
  m.DataCartaCond = DTPicker1[3].Value.ToDate();
  m.ValCartaCond = DTPicker1[4].Value.ToDate();
  m.DataPassa = DataOuZero(5);
  m.ValidadePassa = DataOuZero(6);
  m.TipoCartaCond = static_cast<std::int16_t>(Combo1.ListIndex);
  m.DataValBI = DTPicker1[7].Value.ToDate();
  m.NoCartaoCondutor = Campo[18].Text;
  m.EmissoraCartaoCondutor = Campo[19].Text;
  m.DtInicioCartaoCondutor = DataOuZero(8);
  m.DtFimCartaoCondutor = DataOuZero(9);
  m.DtDescarga = DataOuZero(10);
  m.Inactivo = Check1.Value == 1 ? 1 : 0;
  m.bd = mybd;
  if (!m.Escrever()) return;
  GravarCartas();
  Limparform();
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
  if (indice >= 0 && indice <= 3) {
    motorista_.Codigo = codigo;
    motorista_.bd = mybd;
    LerPelaSeta(motorista_, indice);
  }
  codigo = motorista_.Codigo;
}

void Motoristas::btNavega_Click(int indice) {
  std::string codigo = Campo[0].Text;
  Navega(indice, codigo);
  Gravar();
  Campo[0].Text = codigo;
  Validar_ = true;
  CarregaFicha(codigo);
}

void Motoristas::btAnular_Click() {
  const std::string pergunta =
      Tools::DuasFrases("Vai proceder à anulação do Motorista!", "Pretende continuar?");
  if (Tools::Mensagem("", pergunta, Tools::kOkCancelar) != platform::kCancel) Anular();
  Recomecar();
}

void Motoristas::btLista_Click(int indice) {
  motorista_.bd = mybd;
  const std::string codigo = motorista_.MostraLista();
  const bool cabe = Campo[indice].Fits(codigo);
  if (!cabe) Notify("«" + codigo + "» é mais comprido do que este campo.");
  if (codigo.empty() || !cabe) return Campo[indice].SetFocus();
  Campo[indice].Text = codigo;
  Campo[indice].SelectAll();
  Campo[indice].SetFocus();
  SendKeys("{TAB}");
}

void Motoristas::btArquivo_Click() { AbrirArquivo(Campo[0].Text, 320); }

void Motoristas::Campo_Validate(int indice, bool& cancel) {
  if (indice != 0) return;
  cancel = platform::Trim(Campo[0].Text).empty();
  if (cancel) return;
  motorista_.Codigo = Campo[0].Text;
  motorista_.bd = mybd;
  if (UsaPessoal) {
    motorista_.bdSal = bdSal;
    motorista_.LerSal = true;
  }
  if (motorista_.Ler()) {
    LerFicha();
    LerCartas();
    CarregaFoto();
    return;
  }
  if (UsaPessoal) {
    platform::MsgBox("Deve preencher o funcionário na aplicação de Pessoal");
    cancel = true;
  }
  Limparform();  // the code stays: this is how a new driver begins
}

void Motoristas::Campo_KeyPress(int indice, int& keyCode) {
  Validar_ = true;
  if (keyCode != platform::kKeyEscape) return;
  SendKeys("+{TAB}");
  keyCode = platform::kKeyNone;
  Validar_ = false;
  if (indice == 0) Unload();
}

void Motoristas::Escondeframes5() {
  Frame5.Each([](platform::Frame& frame) { frame.Visible = false; });
}

void Motoristas::SSTab1_Click() {
  Escondeframes5();
  Frame5[SSTab1.Tab].Visible = true;
  constexpr int kPrimeiroCampo[] = {-1, 17, 15, 18, 2};
  const int campo = kPrimeiroCampo[SSTab1.Tab];
  if (campo >= 0) Campo[campo].SetFocus();
}

}  // namespace zorCrmParvel
