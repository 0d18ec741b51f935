// What the user does on the vehicle's ficha: fields left, keys, buttons and tabs.
#include <algorithm>

#include "host/form_catalog.h"
#include "host/tools.h"
#include "platform/host.h"
#include "platform/text.h"
#include "vehicles/viaturas_fields.h"
#include "vehicles/viaturas_form.h"
#include "vehicles/viaturas_tabs.h"

namespace zorCrmParvel {

using platform::Variant;

void Viaturas::Campo_Validate(int indice, bool& cancel) {
  if (indice == 0) {
    if (platform::Trim(Campo[0].Text).empty()) return;
    viatura_.Matricula = Campo[0].Text;
    viatura_.bd = mybd;
    if (viatura_.Ler()) LerTudo();
  } else if (indice == 3) {
    CopiarKmIniciais();
  } else if (indice == 24) {
    ValidarAno(cancel);
  } else if (const Referencia* referencia = ReferenciaDoCampo(indice)) {
    ValidarReferencia(*referencia, cancel);
  }
}

/// The odometer starts at the initial km, until the first expense moves it.
void Viaturas::CopiarKmIniciais() {
  std::string& actuais = Campo[8].Text;
  if (actuais.empty()) actuais = Campo[3].Text;
  if (Tools::TextoParaMoeda(actuais) == 0) actuais = Campo[3].Text;
}

void Viaturas::ValidarAno(bool& cancel) {
  const std::string& texto = Campo[24].Text;
  if (texto.empty()) {
    Tools::Mensagem("", "Campo obrigatório!", Tools::kAviso);
    cancel = true;
    return;
  }
  const platform::Currency ano = Tools::TextoParaMoeda(Campo[24]);
  if (ano >= 1951 && ano < platform::Today().year()) return;
  Tools::Mensagem("", "Valor inválido!", Tools::kAviso);
  cancel = true;
}

void Viaturas::Campo_PedidoFicha(int indice) {
  const Referencia* referencia = ReferenciaDoCampo(indice);
  if (referencia != nullptr && referencia->ficha != nullptr)
    AbrirFicha(referencia->ficha, "CarregaFicha", indice);
}

void Viaturas::Recomecar() {
  Limparform();
  Campo[0].Text.clear();
  Campo[0].SetFocus();
}

void Viaturas::btNavega_Click(int indice) {
  std::string matricula = Campo[0].Text;
  Navega(indice, matricula);
  Gravar();
  CarregaViatura(matricula);
}

void Viaturas::btConf_Click() {
  Gravar();
  Edicao = false;
  Recomecar();
}

void Viaturas::btAnular_Click() {
  if (Continuar("Vai proceder à anulação da Viatura!", "Pretende continuar?")) Anular();
  Edicao = false;
  Recomecar();
}

void Viaturas::btLista_Click(int indice) {
  std::string escolha;
  if (indice == 0) {
    viatura_.bd = mybd;
    escolha = viatura_.MostraLista();
  } else if (const Referencia* referencia = ReferenciaDoCampo(indice)) {
    escolha = Escolher(*referencia);
  }
  Tomar(indice, escolha);
}

void Viaturas::btArquivo_Click(int indice) {
  // The document classes of DUC, policies, leasing, inspections, revisions, accidents, fines, accessories and
  // expenses.
  constexpr std::array<int, 9> kClasses = {300, 304, 307, 302, 301, 305, 306, 308, 303};
  AbrirArquivo(Campo[0].Text, kClasses.at(static_cast<std::size_t>(indice)));
}

void Viaturas::MostrarSeparador(int indice) {
  SSTab1.Tab = indice;
  Separador.Each([=](platform::Frame& frame) { frame.Visible = frame.Index() == indice; });
}

void Viaturas::SSTab1_Click() {
  MostrarSeparador(SSTab1.Tab);
  switch (SSTab1.Tab) {
    case kIdentificacao:
      return;
    case kDUC:
      return DTPicker1[3].SetFocus();
    case kLeasing:
      return Campo[20].SetFocus();
    case kObs:
      return Campo[16].SetFocus();
    default:
      break;
  }
  for (const SeparadorDeEventos& separador : SeparadoresDeEventos())
    if (separador.indice == SSTab1.Tab) (this->*separador.grelha).SetFocus();
}

// The tabs of events.

void Viaturas::Act_Grelha(const SeparadorDeEventos& separador) {
  platform::SGGrid& grelha = this->*separador.grelha;
  grelha.SetRow(-1);
  grelha.ClearColumns();
  grelha.SetRowCount(30);
  grelha.ClearStyles();
  platform::GridStyle& titulos = grelha.AddStyle("Heading");
  titulos.fontName = "Verdana";
  titulos.fontSize = 8;
  for (const ColunaDaGrelha& coluna : separador.colunas)
    grelha.AddColumn(coluna.chave, coluna.titulo, coluna.largura).format = coluna.formato;
  grelha.AddColumn(kColunaId, kColunaId, 0).hidden = true;
}

void Viaturas::Ler(const SeparadorDeEventos& separador) {
  const Snapshot snapshot(mybd);
  platform::SGGrid& grelha = this->*separador.grelha;
  const RecordsetRef rs = separador.eventos(mybd, Campo[0].Text);
  const Row row(*rs);
  const long linhas = grelha.RowCount();
  grelha.Redraw = false;
  grelha.SetRow(-1);
  grelha.SetRowCount(0);  // drops what another vehicle left; the grid doesn't shrink
  grelha.SetRowCount(linhas);
  for (long linha = 0; !rs->Eof(); rs->MoveNext(), ++linha) {
    if (linha == grelha.RowCount() - 1) grelha.SetRowCount(linha + 2);
    for (const ColunaDaGrelha& coluna : separador.colunas) {
      const Variant valor = row.value(coluna.origem);
      grelha.SetCell(linha, coluna.chave, coluna.converter ? coluna.converter(valor, mybd) : valor);
    }
    grelha.SetCell(linha, kColunaId, row.value(separador.origemId));
  }
  grelha.Redraw = true;
  rs->Close();
  if (separador.indice == kInspeccao) MostrarProximaInspecao();
}

void Viaturas::LinhaEscolhida(const SeparadorDeEventos& separador, long linha) {
  if (linha < 0) return;
  const platform::SGGrid& grelha = this->*separador.grelha;
  if (grelha.CellText(linha, grelha.ColumnIndex(separador.preenchida)).empty()) return Limpar(separador);
  Dados(separador, grelha.CellValue(linha, grelha.ColumnIndex(kColunaId)).ToLong());
}

void Viaturas::Dados(const SeparadorDeEventos& separador, std::int32_t id) {
  const auto evento = separador.novo();
  evento->bd = mybd;
  evento->Id = id;
  if (!evento->Ler()) return Limpar(separador);
  std::vector<const Detalhe*> detalhes;
  for (const auto& linha : separador.detalhes)
    for (const Detalhe& detalhe : linha)
      if (detalhe.mostrar) detalhes.push_back(&detalhe);
  // By their numbers: the order in which the codes of an event have always been read.
  std::stable_sort(detalhes.begin(), detalhes.end(),
                   [](const Detalhe* a, const Detalhe* b) { return a->indice < b->indice; });
  for (const Detalhe* detalhe : detalhes) detalhe->mostrar(*this, *evento);
  Campo[separador.campoId].Text = std::to_string(id);
}

void Viaturas::Limpar(const SeparadorDeEventos& separador) {
  for (const auto& linha : separador.detalhes)
    for (const Detalhe& detalhe : linha) {
      if (detalhe.onde == Detalhe::kCampo) Campo[detalhe.indice].Text.clear();
      if (detalhe.onde == Detalhe::kData) DTPicker1[detalhe.indice].Value = platform::Today();
      if (detalhe.onde == Detalhe::kModalidade) Combo1.ListIndex = 1;
      if (detalhe.esvazia) Titulo[detalhe.indice].Caption.clear();
    }
  Campo[separador.campoId].Text.clear();
}

void Viaturas::Editar(const SeparadorDeEventos& separador) {
  const auto ficha = FormCatalog::Shared().Make(separador.ficha);
  if (!ficha) return;
  const std::string& chave = Campo[separador.campoId].Text;
  const Variant id = chave.empty() ? std::int32_t{0} : Variant(chave).ToLong();
  ficha->mybd = mybd;
  ficha->Definir("TipoMostrar", std::int16_t{1});
  ficha->Definir("Matricula", Campo[0].Text);
  ficha->Definir("Seg_Id", id);
  ficha->Load();
  ficha->Chamar(separador.carrega, id);
  ficha->ShowModal();

  Act_Grelha(separador);
  Ler(separador);
  MostrarSeparador(separador.indice);
  aRegressar_ = true;  // the details stay on the event shown last until a row is chosen
  (this->*separador.grelha).SetFocus();
  aRegressar_ = false;
  if (separador.mudaValores) MostrarValores();
}

/// The figures that events compute: a save writes what the screen shows.
void Viaturas::MostrarValores() {
  viatura_.bd = mybd;
  viatura_.Matricula = Campo[0].Text;
  if (!viatura_.Ler()) return;
  for (const CampoDaViatura& campo : kCamposDaViatura)
    if (campo.calculado) Campo[campo.indice].Text = (viatura_.*campo.numero).ToText();
}

}  // namespace zorCrmParvel
