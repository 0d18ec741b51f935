#include "alerts/alert_list.h"

#include <map>
#include <vector>

#include "alerts/alerts_fixture.h"
#include "host/sistema.h"
#include "support/grid_window.h"

namespace zorCrmParvel {
namespace {

using Texts = std::vector<std::string>;

class AlertListTest : public AlertsFixture {
 protected:
  AlertListTest() { sistema.ICrmSistema_ZorDataAccess = bd; }

  /// Starts the list of a key on the grid.
  ICrmVwList& Start(const std::string& key) {
    list = sistema.MostraListas(key);
    window.Start(*list);
    return *list;
  }
  std::string Text(long row, const char* column) { return grid.CellText(row, grid.ColumnIndex(column)); }
  Texts Column(const char* column) {
    Texts texts;
    for (long row = 0; row < grid.RowCount(); ++row) texts.push_back(Text(row, column));
    return texts;
  }
  /// The style of a row, empty when there is no such row.
  std::string Style(long row) {
    const platform::GridStyle* style = row < grid.RowCount() ? grid.StyleOf(row) : nullptr;
    return style == nullptr ? "" : style->name;
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
  const std::string soon = "Apólice a ser regularizada!";
  const std::string verySoon = "Data de Pagamento a menos de 10 dias!";
  const std::string revision = "Revisão marcada para  15-03-2024";
  const std::string selo = "Pagamento do Selo deve ser efectuado durante o mês corrente";
  struct Cell {
    Texts notas;  // empty for no row
    std::string style;
  };
  const struct {
    int days;
    Cell policy;
    Cell revision;
    Cell tax;
    Cell download;
  } cases[] = {
      {-1,
       {{"Prazo Pagamento ultrapassado!"}, "PintarG"},
       {{"Data da Revisão ultrapassada!"}, "PintarG"},
       {{"Data de Pagamento do Selo ultrapassada!"}, "PintarG"},
       {{"Data de Descarga do Tacógrafo ultrapassada!"}, "PintarGKm"}},
      {0, {{verySoon}, "PintarMG"}, {{revision}, "PintarMG"}, {{""}, "PintarMnG"}, {{""}, "PintarMnGKm"}},
      {9,
       {{verySoon}, "PintarMG"},
       {{revision}, "PintarMG"},
       {{selo}, "PintarMnG"},
       {{"Data de Descarga do Tacógrafo deve ser actualizada"}, "PintarMnGKm"}},
      {10, {{soon}, "PintarMnG"}, {{revision}, "PintarMnG"}, {{selo}, "PintarMnG"}, {}},
      {29, {{soon}, "PintarMnG"}, {{revision}, "PintarMnG"}, {{selo}, "PintarMnG"}, {}},
      {30, {{""}, "PintarMnG"}, {}, {}, {}},
      {31, {}, {}, {}, {}},
  };
  const auto expect = [&](const Cell& cell) {
    EXPECT_EQ(Column("Notas"), cell.notas);
    EXPECT_EQ(Style(0), cell.style);
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.days);
    DaysToGo(c.days);
    Start("AlertasAp");
    expect(c.policy);
    Start("AlertasRev");
    expect(c.revision);
    for (const auto& [plate, cell] : {std::pair{"B", c.tax}, {"A", c.download}}) {
      Sql(std::string("UPDATE zor_PV_Viaturas SET Inactiva=1 WHERE Matricula='") + plate + "'");
      Start("AlertasViat");
      expect(cell);
      Sql("UPDATE zor_PV_Viaturas SET Inactiva=0");
    }
  }
}

TEST_F(AlertListTest, KilometresToTheRevision) {
  Vehicle("A");
  const struct {
    int left;
    Texts notas;
    const char* style;
  } cases[] = {{-1001, {"Km ultrapassados! "}, "PintarGKm"},
               {-1, {"Km ultrapassados! "}, "PintarGKm"},
               {0, {"Faltam  0.00 Km para a revisão "}, "PintarMGKm"},
               {499, {"Faltam  499.00 Km para a revisão "}, "PintarMGKm"},
               {500, {"Faltam  500.00 Km para a revisão "}, "PintarMnGKm"},
               {999, {"Faltam  999.00 Km para a revisão "}, "PintarMnGKm"},
               {1000, {}, ""}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.left);
    Sql("UPDATE zor_PV_Viaturas SET KmActual=10000, KmPrxRev=" + std::to_string(10000 + c.left));
    Start("AlertasRev");
    EXPECT_EQ(Column("Notas"), c.notas);
    EXPECT_EQ(Style(0), c.style);
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
  const struct {
    const char* key;
    const char* title;
    const char* visible;
    std::map<std::string, std::uint32_t> colours;
  } cases[] = {
      {"AlertasAp",
       "Alertas - Apólices",
       "Matrícula|Apólice|Tipo Apólice|Data Validade|Notas|",
       {{"PintarG", 0xFF0000}, {"PintarMG", 0xFF8000}, {"PintarMnG", 0xFF8000}}},
      {"AlertasRev",
       "Alertas - Revisões",
       "Matrícula|Marca|Km Actuais|Km Prx.Rev.|Data Prx.Rev.|Notas|",
       {{"PintarG", 0xFF0000},
        {"PintarMG", 0xFF8000},
        {"PintarMnG", 0xFFFF00},
        {"PintarGKm", 0xFF0000},
        {"PintarMGKm", 0xFF8000},
        {"PintarMnGKm", 0xFFFF00}}},
      {"AlertasViat",
       "Alertas - Viaturas",
       "Matrícula|Marca|Data|Notas|",
       {{"PintarG", 0xFF0000}, {"PintarMnG", 0xFF00FF}, {"PintarGKm", 0xFF0000}, {"PintarMnGKm", 0xFF00FF}}},
      {"AlertasInsp",
       "Alertas - Inspecções",
       "Matrícula|Km Actuais|Mês/Ano|Data Prx.Insp.|Notas|",
       {{"PintarG", 0xFF0000}, {"PintarMG", 0xFF8000}, {"PintarMnG", 0xFF8000}}},
      {"AlertasMot",
       "Alertas - Motoristas",
       "Motorista|Documento|Data Validade|Notas|Dias|",
       {{"PintarG", 0xFF0000}, {"PintarMG", 0xFF00FF}, {"PintarMnG", 0x0000FF}}},
      {"AlertasAcess",
       "Alertas - Acessórios",
       "Matrícula|Acessório|Marca|Data Validade|Notas|Id|",
       {{"PintarG", 0xFF0000}, {"PintarMG", 0xFF8000}, {"PintarMnG", 0xFFFF00}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.key);
    grid.ClearStyles();
    EXPECT_EQ(Start(c.key).ICrmVwList_Name(), c.title);
    list->ICrmVwList_Iniciar();
    EXPECT_EQ(list->ICrmVwList_NumeroItens(), 0);
    EXPECT_TRUE(grid.Redraw);
    EXPECT_EQ(window.Headings(), c.visible);
    std::map<std::string, std::uint32_t> colours;
    for (const platform::GridStyle& style : grid.Styles()) {
      colours[style.name] = style.color.value_or(0);
      EXPECT_TRUE(style.bold && style.fontName == "Verdana" && style.fontSize == 8);
    }
    EXPECT_EQ(colours, c.colours);
    EXPECT_EQ(grid.Styles().size(), c.colours.size()) << "a second start adds none";
  }
}

TEST_F(AlertListTest, AFailureCarriesTheListsTitle) {
  Driver("1");
  Sql("INSERT INTO zor_CartasCond (Motorista, TipoCarta, DataValidade) VALUES ('1', 10, " + Day() + ")");
  const platform::RuntimeError error = testing_support::FailureOf([&] { Start("AlertasMot"); });
  EXPECT_EQ(error.number(), platform::kSubscriptOutOfRange);
  EXPECT_EQ(error.source(), "Alertas - Motoristas::Iniciar");
  EXPECT_EQ(grid.RowCount(), 0);
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
  Vehicle("A");
  Policy("A");
  Accessory("A");
  Driver("7");
  Sql("UPDATE zor_Funcionarios SET ValidadePassa=" + Day());
  Sql("UPDATE zor_PV_Viaturas SET SeloPago=0, DataPrxRev=" + Day() + ", DataSelo=" + Day());
  DaysToGo(5);
  const std::map<std::string, std::string> opened = {
      {"AlertasAp", "CarregaViatura A"},   {"AlertasRev", "CarregaViatura A"},
      {"AlertasViat", "CarregaViatura A"}, {"AlertasInsp", "CarregaViatura A"},
      {"AlertasMot", "CarregaFicha 7"},    {"AlertasAcess", "CarregaAcessorio 1"}};
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
  EXPECT_EQ(list->ICrmVwList_NumeroItens(), 1) << "a ficha that isn't there only reloads";
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
