#include "vehicles/viaturas_form.h"

#include "host/tools.h"
#include "platform/format.h"
#include "platform/host.h"
#include "vehicles/computed_dates.h"
#include "vehicles/vehicle_events.h"
#include "vehicles/viaturas_fields.h"
#include "vehicles/viaturas_tabs.h"

namespace zorCrmParvel {
namespace {

using platform::Date;
using platform::Variant;
using platform::zor_input;

constexpr AvisosDeAnulacao kAvisos = {
    "Existem Acessórios associados à Viatura!", "Existem Apólices associados à Viatura!",
    "Existem Sinistros associadas à Viatura!",  "Existem Multas associados à Viatura!",
    "Existem Revisões associadas à Viatura!",   "Existem Gastos associados à Viatura!",
    "Existem Inspecções associadas à Viatura!",
};

}  // namespace

void Viaturas::Definir(std::string_view membro, const Variant& valor) {
  if (membro != "Edicao") return Ficha::Definir(membro, valor);
  Edicao = valor.ToBool();
}

void Viaturas::Chamar(std::string_view rotina, const Variant& argumento) {
  if (rotina != "CarregaViatura") return Ficha::Chamar(rotina, argumento);
  CarregaViatura(argumento.ToText());
}

void Viaturas::Form_Load() {
  Combo1.List = {"Anual", "Semestral"};
  Combo2.List = {"Diesel", "Gasolina", "GPL", "Eléctrico"};
  Edicao = false;
  Limparform();
}

void Viaturas::Limparform() {
  Campo.Each([](zor_input& campo) {
    if (campo.Index() != 0) campo.Text.clear();
  });
  DTPicker1.Each([](platform::DTPicker& data) { data.Value = platform::Today(); });
  for (int titulo : {27, 13, 14, 15, 16, 34, 2, 51}) Titulo[titulo].Caption.clear();
  Combo1.ListIndex = 1;
  Combo2.ListIndex = 0;
  chkBxSeloPago.Value = Check1.Value = Check2.Value = 0;
  for (const SeparadorDeEventos& separador : SeparadoresDeEventos()) Act_Grelha(separador);
  ShowImg1.Clear();
  MostrarSeparador(0);
  FixarMatricula();
}

void Viaturas::FixarMatricula() {
  Campo[0].Enabled = btLista[0].Enabled = !Edicao;
  if (Edicao && ActiveControl() == &Campo[0]) Campo[1].SetFocus();
}

void Viaturas::CarregaViatura(const std::string& matricula) {
  Campo[0].Text = matricula;
  viatura_.Matricula = matricula;
  viatura_.bd = mybd;
  if (!viatura_.Ler()) return;
  LerTudo();
  if (Edicao) FixarMatricula();
}

void Viaturas::LerTudo() {
  const Snapshot snapshot(mybd);
  LerFicha();
  for (const SeparadorDeEventos& separador : SeparadoresDeEventos()) {
    Limpar(separador);
    Ler(separador);
  }
  CarregaFoto();
}

void Viaturas::LerFicha() {
  for (const CampoDaViatura& campo : kCamposDaViatura) {
    if (campo.texto != nullptr) Campo[campo.indice].Text = viatura_.*campo.texto;
    if (campo.numero != nullptr) Campo[campo.indice].Text = (viatura_.*campo.numero).ToText();
  }
  Campo[11].Text = viatura_.Responsavel.IsNull() ? "" : viatura_.Responsavel.ToText();
  Campo[24].Text = std::to_string(viatura_.AnoMatricula);
  for (const Referencia& referencia : Referencias()) MostrarReferencia(referencia);
  for (const DataDaViatura& data : kDatasDaViatura) {
    if (data.propriedade == nullptr) continue;
    const Date valor = viatura_.*data.propriedade;
    DTPicker1[data.indice].Value = data.hojeSeZero ? HojeSeZero(valor) : valor;
  }
  Combo2.ListIndex = viatura_.Combustivel;
  Check1.Value = viatura_.Inactiva == 1 ? 1 : 0;
  Check2.Value = viatura_.Tacografo == 1 ? 1 : 0;
  if (viatura_.DataSelo.IsZero()) return CalculaDataSelo();
  DTPicker1[13].Value = viatura_.DataSelo;
  chkBxSeloPago.Value = viatura_.SeloPago ? 1 : 0;
}

void Viaturas::Gravar() {
  viatura_.Matricula = Campo[0].Text;
  for (const CampoDaViatura& campo : kCamposDaViatura) {
    if (campo.texto != nullptr) viatura_.*campo.texto = Campo[campo.indice].Text;
    if (campo.numero != nullptr) viatura_.*campo.numero = Tools::TextoParaMoeda(Campo[campo.indice]);
  }
  viatura_.Responsavel = Campo[11].Text;
  viatura_.AnoMatricula = platform::ToInteger(Tools::TextoParaMoeda(Campo[24]).ToWhole());
  for (const DataDaViatura& data : kDatasDaViatura) {
    if (data.propriedade == nullptr) continue;
    const platform::DTPicker& lida = DTPicker1[data.indice];
    viatura_.*data.propriedade = data.opcional ? DataOuZero(lida) : lida.Value.ToDate();
  }
  viatura_.Combustivel = static_cast<std::int16_t>(Combo2.ListIndex);
  viatura_.Inactiva = Check1.Value == 1 ? 1 : 0;
  viatura_.Tacografo = Check2.Value == 1 ? 1 : 0;
  viatura_.DataSelo = DTPicker1[13].Value.ToDate();
  viatura_.SeloPago = chkBxSeloPago.Value == 1;
  viatura_.bd = mybd;
  viatura_.Escrever();
  Limparform();
}

RegistoComFoto& Viaturas::RegistoDoEcra() {
  viatura_.bd = mybd;
  viatura_.Matricula = Campo[0].Text;
  return viatura_;
}

void Viaturas::Navega(int indice, std::string& matricula) {
  Mover(viatura_, viatura_.Matricula, indice, matricula);
}

void Viaturas::Anular() {
  const RespostaAosAvisos resposta = AvisarDosEventos(mybd, Campo[0].Text, kAvisos);
  if (resposta == RespostaAosAvisos::kRecusados) return;
  if (resposta == RespostaAosAvisos::kAceites) {
    viatura_.bd = mybd;
    viatura_.Matricula = Campo[0].Text;
    viatura_.Anular();
  }
  Limparform();
  Campo[0].SetFocus();
}

void Viaturas::CalculaDataSelo() {
  const Date fim = FimDoPrazoDoSelo(DTPicker1[3].Value.ToDate().month(), platform::Today());
  const bool mesmoDia = platform::DaysBetween(DTPicker1[13].Value.ToDate(), fim) == 0;
  if (mesmoDia && !viatura_.DataSelo.IsZero()) return;
  DTPicker1[13].Value = fim;
  chkBxSeloPago.Value = 0;
}

void Viaturas::MostrarProximaInspecao() {
  const Date matriculada = DTPicker1[3].Value.ToDate();
  std::int16_t dias = 0;
  std::string data;
  Tools::ProximaInspecao(Campo[0].Text, platform::ToInteger(matriculada.year()), matriculada, dias, data,
                         Campo[13].Text, mybd);
  Titulo[67].Caption = "Próxima Inspecção, até " + data;
  Titulo[63].Caption = "Faltam .... " + std::to_string(dias) + " dias";
}

void Viaturas::ProximaInspTeste() {
  const Date matriculada = DTPicker1[3].Value.ToDate();
  const int idade = platform::Today().year() - matriculada.year();
  const int anos = idade < 7 ? 6 : idade <= 8 ? 8 : idade <= 10 ? 10 : idade;
  const Date data = Date::FromParts(matriculada.year() + anos, matriculada.month(), matriculada.day());
  Titulo[67].Caption = "Próxima Inspecção, até " + platform::FormatDate(data, "dd-mm-yyyy");
  Titulo[63].Caption =
      "Faltam .... " + std::to_string(platform::DaysBetween(platform::Today(), data)) + " dias";
}

}  // namespace zorCrmParvel
