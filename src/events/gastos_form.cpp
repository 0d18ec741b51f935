#include "events/gastos_form.h"

#include "drivers/motoristas.h"
#include "events/expense_rules.h"
#include "host/tools.h"
#include "masterdata/tipos_gastos.h"
#include "platform/runtime_error.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {
namespace {

using platform::Currency;

enum Indice : int { kViagem = 1, kMotorista, kObs, kTipoGasto, kQtd, kCusto, kValorUn, kKm };

const FichaDeEvento kGastos{
    .textos = {"Gastos", "Gastos", "CarregaGasto", "Vai proceder à anulação do Gasto!", "Lista de Gastos."},
    .classeArquivo = 303,
    .listaViaturas = 3,
    .tituloMarca = 8,
    .formatoData = "dd-mm-yyyy hh:mm",
    .adopcao = Adopcao::kLogo,
    .regrasComTecla = true,
    .referencias = {{kViagem, 1, 7, "Lista de Viagens.", "Viagens", &NovaEntidade<clViagens>,
                     RegrasDeGastos::kViagemInexistente, true},
                    {kMotorista, 2, 14, "Lista de Motoristas.", "Motoristas", &NovaEntidade<clMotoristas>,
                     RegrasDeGastos::kMotoristaInexistente},
                    {kTipoGasto, 4, 12, "Lista de Tipos de Gastos.", "TiposGastos",
                     &NovaEntidade<clTiposGastos>, RegrasDeGastos::kTipoInexistente}},
};

}  // namespace

Gastos::Gastos() : EventForm(kGastos, std::make_unique<clGastos>()) {
  auto& gasto = static_cast<clGastos&>(entidade());
  LinhaDaMatricula();
  LinhaDaData(DTPicker1, "Data", "Data da aquisicão.");
  Linha({Texto(kTipoGasto, "Tipo Gasto", "Tipo de Gasto.", 25, gasto.TipoGasto)});
  Linha({Texto(kMotorista, "Motorista", "Motorista.", 25, gasto.Motorista)});
  Linha({Texto(kViagem, "Viagem", "Viagem.", 50, gasto.Viagem)});
  Linha({Numero(kQtd, "Qtd.", "Quantidade.", gasto.Qtd),
         Numero(kValorUn, "Valor Un.", "Valor Unitário.", gasto.ValorUn, "###,###.##0")});
  Linha({Numero(kCusto, "Custo Total", "Custo Total.", gasto.Custo),
         Numero(kKm, "Km", "Km no momento do gasto.", gasto.Km, "###,##0")});
  Linha({Texto(kObs, "Observações", "Obs.", 150, gasto.Obs)});
}

Currency Gastos::Valor(int indice) const { return Tools::TextoParaMoeda(Campo[indice]); }

void Gastos::GuardarDaViatura(const clViaturas& viatura) {
  inicio_ = {.Km = viatura.KmInicial, .Qtd = viatura.QtdInicial};
}

void Gastos::ReferenciaLida(const Referencia& referencia, CodeTable& entidade, bool aoValidar) {
  if (referencia.campo != kTipoGasto) return;
  const auto& tipo = static_cast<clTiposGastos&>(entidade);
  combustivel_ = tipo.Combustivel == 1;
  if (aoValidar) Campo[kValorUn].Text = tipo.CustoUnit.ToText();
}

void Gastos::ValidarCampo(int indice, bool& cancel) {
  if (indice == kQtd)
    ValidarQuantidade(cancel);
  else if (indice == kCusto)
    ValidarCusto(cancel);
  else if (indice == kValorUn)
    ValidarValorUnitario();
  else if (indice == kKm)
    ValidarKm(cancel);
}

void Gastos::VazioPassaAZero(int indice) {
  if (Campo[indice].Text.empty()) Campo[indice].Text = "0";
}

void Gastos::CalcularCusto() { Campo[kCusto].Text = (Valor(kQtd) * Valor(kValorUn)).ToText(); }

/// Shows the message of a rule that failed and keeps the focus; true when all is well.
bool Gastos::Passa(const char* mensagem, bool& cancel) {
  if (mensagem == nullptr) return true;
  Tools::Mensagem("", mensagem, Tools::kAviso);
  cancel = true;
  return false;
}

void Gastos::ValidarQuantidade(bool& cancel) {
  VazioPassaAZero(kQtd);
  if (combustivel_ && Passa(RegrasDeGastos::Quantidade(true, Valor(kQtd)), cancel)) CalcularCusto();
}

void Gastos::ValidarCusto(bool& cancel) const {
  if (Campo[kCusto].Text.empty())
    Passa("Campo obrigatório!", cancel);
  else
    Passa(RegrasDeGastos::Custo(Valor(kCusto)), cancel);
}

void Gastos::ValidarValorUnitario() {
  VazioPassaAZero(kValorUn);
  if (Valor(kValorUn) > 0) CalcularCusto();
}

void Gastos::ValidarKm(bool& cancel) {
  VazioPassaAZero(kKm);
  if (!combustivel_) return;
  const bool positivo = Valor(kKm) > 0;  // nothing is read for a value that fails anyway
  const Currency anterior =
      positivo ? KmDataAnterior(Campo[kMatricula].Text, DTPicker1.Value.ToDate()) : Currency();
  Passa(RegrasDeGastos::Km(true, Valor(kKm), anterior), cancel);
}

Currency Gastos::KmDataAnterior(const std::string& matricula, platform::Date data) const {
  try {
    return clGastos::KmAnterior(mybd, matricula, data);
  } catch (const platform::RuntimeError& error) {
    throw platform::RuntimeError(error.number(), "KmDataAnterior", error.description());
  }
}

void Gastos::DepoisDeGravar() {
  resumo_.Ler(mybd, Matricula);
  resumo_.ActualizaAposGravar(mybd, Matricula, inicio_, OutrosCustos(mybd, Campo[kMatricula].Text));
  EventForm::DepoisDeGravar();
}

void Gastos::DepoisDeAnular() {
  resumo_.Ler(mybd, Matricula);
  resumo_.ActualizaAposAnular(mybd, Matricula, inicio_);
}

}  // namespace zorCrmParvel
