#include "alerts/alert_list.h"

#include <algorithm>

#include "host/form_catalog.h"

namespace zorCrmParvel {
namespace {

using platform::FormatCondition;
using platform::GridStyle;
using platform::RuntimeError;

enum ComandoDaLinha : long { kNovo = 900, kRemover = 902 };

constexpr const char* kLetra = "Verdana";
constexpr int kCorpo = 8;

/// A new style; null when the grid has it from an earlier start.
GridStyle* NovoEstilo(SGGrid& grid, const char* nome) {
  try {
    return &grid.AddStyle(nome);
  } catch (const RuntimeError&) {
    return nullptr;
  }
}

void AcrescentaEstilos(SGGrid& grid, const std::vector<EstiloDeAlerta>& estilos) {
  for (const EstiloDeAlerta& estilo : estilos) {
    GridStyle* style = NovoEstilo(grid, estilo.nome);
    if (style == nullptr) continue;
    style->color = estilo.cor;
    style->fontName = kLetra;
    style->fontSize = kCorpo;
    style->bold = true;
  }
}

}  // namespace

void AlertList::PreencheGrid(const RecordsetRef& linhas) {
  SGGrid& grid = Grid();
  AcrescentaEstilos(grid, lista_.estilos);
  ListFrame::PreencheGrid(linhas);
  grid.ClearConditions();
  for (const FormatCondition& condicao : lista_.condicoes) grid.AddCondition(condicao);
}

std::unique_ptr<Ficha> AlertList::FichaDe(const std::string& chave, const GridRow& /*row*/) {
  auto ficha = FormCatalog::Shared().Make(lista_.ficha);
  if (!ficha) return nullptr;
  ficha->mybd = mybd;
  ficha->Load();
  ficha->Chamar(lista_.rotina, chave);
  return ficha;
}

void AlertList::ICrmVwList_BeforePopUpViewListEdit(PopUpMenu& menu) {
  for (long comando : {kNovo, kRemover})
    if (platform::MenuItem* item = menu.Find(comando)) item->enabled = false;
}

ContagemDeAlertas AlertList::Contar() {
  ContagemDeAlertas contagem;
  Executar("::Contar", [&] {
    const RecordsetRef linhas = AbrirLinhas();
    contagem = ContarFaixas(linhas, lista_.condicoes);
    linhas->Close();
  });
  return contagem;
}

bool AlertList::TemFaixa(Tools::Faixa faixa) const {
  return std::any_of(lista_.condicoes.begin(), lista_.condicoes.end(),
                     [faixa](const FormatCondition& c) { return FaixaDe(c) == faixa; });
}

void AlertList::PreparaGrelha(const std::vector<ColunaSolta>& colunas) {
  SGGrid& grid = Grid();
  grid.Setting = 1;
  if (GridStyle* titulo = NovoEstilo(grid, "Heading")) {
    titulo->alignment = 5;
    titulo->fontName = kLetra;
    titulo->fontSize = kCorpo;
  }
  AcrescentaEstilos(grid, lista_.estilos);
  grid.ClearColumns();
  for (const ColunaSolta& coluna : colunas) {
    platform::GridColumn& column = grid.AddColumn(coluna.nome, coluna.legenda, coluna.largura);
    column.textLimit = coluna.limite;
    column.format = coluna.formato;
    column.hidden = coluna.escondida;
  }
  for (const FormatCondition& condicao : lista_.condicoes) grid.AddCondition(condicao);
}

void AlertList::PreparaGrelhaDeMotoristas() {
  PreparaGrelha({{"Motorista", "Motorista", 3500, 10},
                 {"Doc", "Documento", 1800, 20},
                 {"Data", "Data Validade", 1500, 10},
                 {"Notas", "Notas", 4250, 10},
                 {"Dias", "Dias", 1000, 10, "", true},
                 {"Codigo", "Codigo", 1000, 10, "", true}});
}

void VwLstAlertasInsp::Act_GrelhaInsp() {
  PreparaGrelha({{"Matricula", "Matricula", 1500, 10},
                 {"KmActuais", "Km Actuais", 1800, 20, "###,##0"},
                 {"MesAno", "Mês/Ano", 1800, 20},
                 {"DataPrx", "Data Prx.Insp.", 1700, 10},
                 {"Notas", "Notas", 4250, 10},
                 {"Dias", "Dias", 1000, 10, "", true}});
}

}  // namespace zorCrmParvel
