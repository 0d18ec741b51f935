#include "alerts/alert_list.h"

#include <array>
#include <map>
#include <sstream>

#include "alerts/alerts_fixture.h"
#include "host/sistema.h"
#include "support/grid_window.h"

namespace zorCrmParvel {
namespace {

constexpr const char* kKeys[] = {"AlertasAp",    "AlertasRev", "AlertasInsp",
                                 "AlertasAcess", "AlertasMot", "AlertasViat"};

class AlertListTest : public AlertsFixture {
 protected:
  AlertListTest() { sistema.ICrmSistema_ZorDataAccess = bd; }

  /// A vehicle and a driver of whom everything is due on one day.
  void Everything() {
    Vehicle("A");
    Policy("A");
    Accessory("A");
    Sql("UPDATE zor_PV_Viaturas SET SeloPago=0, Tacografo=1, DataPrxRev=" + Day() + ", DataSelo=" + Day() +
        ", DtDescarga=" + Day());
    Driver("1");
    Sql("UPDATE zor_Funcionarios SET ValidadePassa=" + Day() + ", NoCartaoCondutor='C', DtDescarga=" + Day());
  }
  /// Starts the list of a key on the grid.
  ICrmVwList& Start(const std::string& key) {
    list = sistema.MostraListas(key);
    window.Start(*list);
    return *list;
  }
  ContagemDeAlertas Count(const char* key) {
    return dynamic_cast<AlertList&>(*sistema.MostraListas(key)).Contar();
  }
  /// The rows of a list by the styles that the grid gives them.
  ContagemDeAlertas CountOnGrid(const char* key) {
    ContagemDeAlertas count;
    count.linhas = Start(key).ICrmVwList_NumeroItens();
    for (long row = 0; row < count.linhas; ++row) {
      const std::string name = Style(row);
      if (name == "PintarG" || name == "PintarGKm") ++count.passadas;
      if (name == "PintarMG" || name == "PintarMGKm") ++count.muitoBreves;
      if (name == "PintarMnG" || name == "PintarMnGKm") ++count.breves;
    }
    return count;
  }
  std::string Text(long row, const char* column) { return grid.CellText(row, grid.ColumnIndex(column)); }
  std::string Style(long row) {
    const platform::GridStyle* style = grid.StyleOf(row);
    return style == nullptr ? "" : style->name;
  }
  /// The notes of the rows, each with its style.
  std::string Notes() {
    std::string text;
    for (long row = 0; row < grid.RowCount(); ++row) text += Text(row, "Notas") + "|" + Style(row);
    return text;
  }

  Sistema sistema;
  testing_support::GridWindow window;
  SGGrid& grid = window.grid;
  std::unique_ptr<ICrmVwList> list;
};

TEST_F(AlertListTest, BandsOfTheListsThatAreStatements) {
  Vehicle("A");
  Policy("A");
  Sql("UPDATE zor_PV_Viaturas SET SeloPago=0, DataPrxRev=" + Day() + ", DataSelo=" + Day());
  Vehicle("B");
  Sql("UPDATE zor_PV_Viaturas SET DataSelo=NULL, Tacografo=1, DtDescarga=" + Day() + " WHERE Matricula='B'");
  const char* const verySoonRevision = "Revisão marcada para  15-03-2024|PintarMG";
  const char* const soonRevision = "Revisão marcada para  15-03-2024|PintarMnG";
  const char* const verySoon = "Data de Pagamento a menos de 10 dias!|PintarMG";
  const char* const soon = "Apólice a ser regularizada!|PintarMnG";
  const char* const tax = "Pagamento do Selo deve ser efectuado durante o mês corrente|PintarMnG";
  const char* const download = "Data de Descarga do Tacógrafo deve ser actualizada|PintarMnGKm";
  // The days with what stands in the lists of policies, revisions, road tax and downloads.
  const std::pair<int, std::array<const char*, 4>> cases[] = {
      {-1,
       {"Prazo Pagamento ultrapassado!|PintarG", "Data da Revisão ultrapassada!|PintarG",
        "Data de Pagamento do Selo ultrapassada!|PintarG",
        "Data de Descarga do Tacógrafo ultrapassada!|PintarGKm"}},
      {0, {verySoon, verySoonRevision, "|PintarMnG", "|PintarMnGKm"}},
      {9, {verySoon, verySoonRevision, tax, download}},
      {10, {soon, soonRevision, tax, ""}},
      {29, {soon, soonRevision, tax, ""}},
      {30, {"|PintarMnG", "", "", ""}},
      {31, {"", "", "", ""}},
  };
  for (const auto& [days, shown] : cases) {
    SCOPED_TRACE(days);
    DaysToGo(days);
    Start("AlertasAp");
    EXPECT_EQ(Notes(), shown[0]);
    Start("AlertasRev");
    EXPECT_EQ(Notes(), shown[1]);
    for (const auto& [plate, notes] : {std::pair{"B", shown[2]}, {"A", shown[3]}}) {
      Sql(std::string("UPDATE zor_PV_Viaturas SET Inactiva=1 WHERE Matricula='") + plate + "'");
      Start("AlertasViat");
      EXPECT_EQ(Notes(), notes);
      Sql("UPDATE zor_PV_Viaturas SET Inactiva=0");
    }
  }
}

TEST_F(AlertListTest, KilometresToTheRevision) {
  Vehicle("A");
  const std::pair<int, const char*> cases[] = {{-1001, "Km ultrapassados! |PintarGKm"},
                                               {-1, "Km ultrapassados! |PintarGKm"},
                                               {0, "Faltam  0.00 Km para a revisão |PintarMGKm"},
                                               {499, "Faltam  499.00 Km para a revisão |PintarMGKm"},
                                               {500, "Faltam  500.00 Km para a revisão |PintarMnGKm"},
                                               {999, "Faltam  999.00 Km para a revisão |PintarMnGKm"},
                                               {1000, ""}};
  for (const auto& [left, notes] : cases) {
    SCOPED_TRACE(left);
    Sql("UPDATE zor_PV_Viaturas SET KmActual=10000, KmPrxRev=" + std::to_string(10000 + left));
    Start("AlertasRev");
    EXPECT_EQ(Notes(), notes);
  }
  Sql("UPDATE zor_PV_Viaturas SET KmPrxRev=10500, DataPrxRev=" + Day());
  DaysToGo(5);
  EXPECT_EQ(Start("AlertasRev").ICrmVwList_NumeroItens(), 2) << "by date and by kilometres";
  EXPECT_EQ(Text(0, "KmActual"), "10.000");
  Sql("UPDATE zor_PV_Viaturas SET KmPrxRev=NULL");
  EXPECT_EQ(Start("AlertasRev").ICrmVwList_NumeroItens(), 1);
  Sql("UPDATE zor_PV_Viaturas SET Inactiva=1");
  EXPECT_EQ(Start("AlertasRev").ICrmVwList_NumeroItens(), 0);
}

TEST_F(AlertListTest, WhatTheStatementsLeaveOut) {
  Vehicle("A");
  Policy("A");
  Policy("SEM-VIAT");
  DaysToGo(5);
  EXPECT_EQ(Start("AlertasAp").ICrmVwList_NumeroItens(), 1) << "a policy whose vehicle is missing";
  Sql("UPDATE zor_PV_Seguros SET TipoSeguro='NADA'");
  EXPECT_EQ(Start("AlertasAp").ICrmVwList_NumeroItens(), 0);
  Sql("UPDATE zor_PV_Viaturas SET SeloPago=1, Tacografo=0, DtDescarga=" + Day() + ", DataSelo=" + Day());
  EXPECT_EQ(Start("AlertasViat").ICrmVwList_NumeroItens(), 0) << "paid, and without a tachograph";
  Sql("UPDATE zor_PV_Viaturas SET SeloPago=NULL");
  EXPECT_EQ(Start("AlertasViat").ICrmVwList_NumeroItens(), 1);
}

TEST_F(AlertListTest, SetsTheGridUpEvenWithoutRows) {
  // The key, the title, the headings, and the colours of the styles.
  const std::array<const char*, 4> cases[] = {
      {"AlertasAp", "Alertas - Apólices", "Matrícula|Apólice|Tipo Apólice|Data Validade|Notas|",
       "PintarG=ff0000 PintarMG=ff8000 PintarMnG=ff8000 "},
      {"AlertasRev", "Alertas - Revisões", "Matrícula|Marca|Km Actuais|Km Prx.Rev.|Data Prx.Rev.|Notas|",
       "PintarG=ff0000 PintarMG=ff8000 PintarMnG=ffff00 PintarGKm=ff0000 PintarMGKm=ff8000 "
       "PintarMnGKm=ffff00 "},
      {"AlertasViat", "Alertas - Viaturas", "Matrícula|Marca|Data|Notas|",
       "PintarG=ff0000 PintarMnG=ff00ff PintarGKm=ff0000 PintarMnGKm=ff00ff "},
      {"AlertasInsp", "Alertas - Inspecções", "Matrícula|Km Actuais|Mês/Ano|Data Prx.Insp.|Notas|",
       "PintarG=ff0000 PintarMG=ff8000 PintarMnG=ff8000 "},
      {"AlertasMot", "Alertas - Motoristas", "Motorista|Documento|Data Validade|Notas|Dias|",
       "PintarG=ff0000 PintarMG=ff00ff PintarMnG=ff "},
      {"AlertasAcess", "Alertas - Acessórios", "Matrícula|Acessório|Marca|Data Validade|Notas|Id|",
       "PintarG=ff0000 PintarMG=ff8000 PintarMnG=ffff00 "}};
  for (const auto& [key, title, headings, colours] : cases) {
    SCOPED_TRACE(key);
    grid.ClearStyles();
    EXPECT_EQ(Start(key).ICrmVwList_Name(), title);
    list->ICrmVwList_Iniciar();
    EXPECT_EQ(list->ICrmVwList_NumeroItens(), 0);
    EXPECT_TRUE(grid.Redraw);
    EXPECT_EQ(window.Headings(), headings);
    std::ostringstream styles;
    for (const platform::GridStyle& style : grid.Styles()) {
      styles << style.name << '=' << std::hex << style.color.value_or(0) << ' ';
      EXPECT_TRUE(style.bold && style.fontName == "Verdana" && style.fontSize == 8);
    }
    EXPECT_EQ(styles.str(), colours) << "a second start adds none";
  }
}

TEST_F(AlertListTest, CountsTheRowsAsTheListColoursThem) {
  Everything();
  for (const char* key : kKeys) {
    SCOPED_TRACE(key);
    for (const int days : kEdges) {
      DaysToGo(days);
      EXPECT_EQ(Count(key), CountOnGrid(key)) << days;
    }
    const auto& alerts = dynamic_cast<const AlertList&>(*list);
    EXPECT_TRUE(alerts.TemFaixa(Tools::Faixa::kPassada) && alerts.TemFaixa(Tools::Faixa::kBreve));
    EXPECT_EQ(alerts.TemFaixa(Tools::Faixa::kMuitoBreve), std::string(key) != "AlertasViat");
  }
  for (const int km : {9001, 8600, 8400}) {
    Sql("UPDATE zor_PV_Viaturas SET KmActual=" + std::to_string(km));
    EXPECT_EQ(Count("AlertasRev"), CountOnGrid("AlertasRev")) << km;
  }
}

TEST_F(AlertListTest, AFailureCarriesTheListsTitle) {
  Driver("1");
  Sql("INSERT INTO zor_CartasCond (Motorista, TipoCarta, DataValidade) VALUES ('1', 10, " + Day() + ")");
  const auto expect = [&](const char* source, const std::function<void()>& act) {
    const platform::RuntimeError error = testing_support::FailureOf(act);
    EXPECT_EQ(error.number(), platform::kSubscriptOutOfRange) << "there is no such licence class";
    EXPECT_EQ(error.source(), source);
  };
  expect("Alertas - Motoristas::Iniciar", [&] { Start("AlertasMot"); });
  EXPECT_EQ(grid.RowCount(), 0);
  expect("Alertas - Motoristas::Contar", [&] { Count("AlertasMot"); });
}

/// Stands in for a ficha of the catalogue and keeps what it was asked.
class Stub : public Ficha {
 public:
  static inline std::string asked;
  void Chamar(std::string_view rotina, const platform::Variant& argumento) override {
    EXPECT_TRUE(IsLoaded() && mybd);
    asked = std::string(rotina) + " " + argumento.ToText();
  }
};

TEST_F(AlertListTest, EditarOpensWhatTheRowSpeaksOfAndReloads) {
  Everything();
  DaysToGo(5);
  const std::map<std::string, std::string> opened = {
      {"AlertasAp", "CarregaViatura A"},   {"AlertasRev", "CarregaViatura A"},
      {"AlertasViat", "CarregaViatura A"}, {"AlertasInsp", "CarregaViatura A"},
      {"AlertasMot", "CarregaFicha 1"},    {"AlertasAcess", "CarregaAcessorio 1"}};
  for (const char* name : {"Viaturas", "Motoristas", "Acessorios"})
    FormCatalog::Shared().Register(name, [] { return std::make_unique<Stub>(); });
  for (const auto& [key, asked] : opened) {
    SCOPED_TRACE(key);
    Start(key);
    Stub::asked.clear();
    list->ICrmVwList_Editar(nullptr);
    GridRow group(grid, 0, true);
    list->ICrmVwList_Editar(&group);
    EXPECT_EQ(Stub::asked, "");
    const RecordsetRef before = grid.DataSource();
    host.NextForm([](platform::Form&) {});
    GridRow row = grid.RowAt(0);
    list->ICrmVwList_Editar(&row);
    EXPECT_EQ(Stub::asked, asked);
    EXPECT_FALSE(grid.DataSource() == before);
  }
  FormCatalog::Shared().Register("Motoristas", [] { return nullptr; });
  Start("AlertasMot");
  GridRow row = grid.RowAt(0);
  list->ICrmVwList_Editar(&row);
  EXPECT_EQ(list->ICrmVwList_NumeroItens(), 2) << "a ficha that isn't there only reloads";
}

TEST_F(AlertListTest, RowsCantBeAddedOrRemoved) {
  Start("AlertasAp");
  PopUpMenu menu;
  for (long id : {900, 901, 902}) menu.Add(id, "x");
  list->ICrmVwList_BeforePopUpViewListEdit(menu);
  EXPECT_FALSE(menu.Find(900)->enabled);
  EXPECT_TRUE(menu.Find(901)->enabled);
  EXPECT_FALSE(menu.Find(902)->enabled);
}

TEST_F(AlertListTest, TheGridsCanBeSetUpWithoutRows) {
  VwLstAlertasAcess accessories;
  accessories.ICrmVwList_GridMaster(&grid);
  accessories.Act_GrelhaMot();
  EXPECT_EQ(grid.Column("Doc").textLimit, 20) << "the drivers' columns, here too";
  EXPECT_TRUE(grid.Column("Codigo").hidden);
  VwLstAlertasInsp inspections;
  inspections.ICrmVwList_GridMaster(&grid);
  inspections.Act_GrelhaInsp();
  grid.SetRowCount(1);
  grid.SetCell(0, "KmActuais", 1234.0);
  grid.SetCell(0, "Dias", 12);
  EXPECT_EQ(Text(0, "KmActuais"), "1.234");
  EXPECT_EQ(Style(0), "PintarMnG");
}

}  // namespace
}  // namespace zorCrmParvel
