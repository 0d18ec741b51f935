#include "vehicles/viaturas_tabs.h"

#include <set>

#include "events/acessorios.h"
#include "events/gastos.h"
#include "events/inspecoes.h"
#include "events/multas.h"
#include "events/revisoes.h"
#include "events/seguros.h"
#include "events/sinistros.h"
#include "host/sistema.h"
#include "support/database_test.h"

namespace zorCrmParvel {
namespace {

using platform::Currency;
using platform::Date;
using namespace testing_support;
using Row = std::vector<std::string>;

constexpr const char* kPlate = "12-AB-34";

class ViaturasTabsTest : public DatabaseTest {
 protected:
  ViaturasTabsTest() {
    AddFleet(bd, 20000);
    form.mybd = bd;
    form.Load();
  }
  /// An event of the vehicle that only needs its own columns, of February.
  template <typename E>
  struct Event : EventOf<E> {
    Event(const DataAccessRef& database, int day) : EventOf<E>(database, kPlate) {
      E::Data = Date::FromParts(2024, 2, day, 8, 5, 30);
      E::Obs = "nota";
    }
  };
  /// One event of each kind, and a second policy, closed.
  void AddEvents() {
    Event<clSeguros> seguro(bd, 10);
    seguro.Apolice = "AP-1";
    seguro.Premio = 300;
    seguro.Escrever();
    seguro.Apolice = "AP-0";
    seguro.Inactiva = 1;
    seguro.Escrever();
    Event<clRevisoes> revisao(bd, 11);
    revisao.Km = 15000;
    revisao.Custo = Currency::Parse("99,5");
    revisao.Escrever();
    Event<clInspecoes> inspecao(bd, 12);
    inspecao.Km = 16000;
    inspecao.Escrever();
    Event<clAcessorios> acessorio(bd, 13);
    acessorio.TipoAcessorio = "GPS";
    acessorio.Marca = "Tom";
    acessorio.Escrever();
    AddExpense(bd, kPlate, Date::FromParts(2024, 2, 14, 9, 30, 15), "PORTAGEM", "2", "7,5", 100);
    Event<clSinistros> sinistro(bd, 15);
    sinistro.Motorista = "1";
    sinistro.LocalAc = "A1";
    sinistro.Escrever();
    Event<clMultas> multa(bd, 16);
    multa.Motorista = "PERDIDO";
    multa.Valor = 60;
    multa.Escrever();
  }
  static Row Cells(const platform::SGGrid& grid, long row) {
    Row cells;
    for (std::size_t i = 0; i < grid.Columns().size(); ++i)
      if (!grid.Columns()[i].hidden) cells.push_back(grid.CellText(row, i));
    return cells;
  }
  Row Fields(const std::vector<int>& fields) const {
    Row texts;
    for (int field : fields) texts.push_back(form.Campo[field].Text);
    return texts;
  }
  void Show(int tab) {
    form.CarregaViatura(kPlate);
    form.UserSelectsTab(form.SSTab1, kIdentificacao);
    form.UserSelectsTab(form.SSTab1, tab);
  }

  Sistema sistema;
  Viaturas form;
};

TEST_F(ViaturasTabsTest, EachTabShowsItsEventsAndTheDetailsOfTheFirst) {
  AddEvents();
  const struct {
    int tab;
    platform::SGGrid& grid;
    const char* cells;
    std::vector<int> fields;
    const char* texts;
    int date;
    const char* shown;
  } tabs[] = {
      {kApolices,
       form.Grelha,
       "AP-1|10-02-2024 08:05:30|Activa",
       {15, 27, 36},
       "AP-1|300|1",
       5,
       "10-02-2024 08:05:30"},
      {kRevisoes,
       form.GrelhaManut,
       "11-02-2024 08:05:30|15.000|99,50",
       {51, 52, 54, 49},
       "15000|99,5|nota|1",
       7,
       "11-02-2024 08:05:30"},
      {kInspeccao,
       form.GrelhaInsp,
       "12-02-2024 08:05:30|16.000|0,00",
       {46, 47, 45, 48},
       "16000|0|nota|1",
       6,
       "12-02-2024 08:05:30"},
      {kAcessorios, form.GrelhaAces, "GPS|Tom|", {18, 35, 37}, "Tom|nota|1", 2, "13-02-2024 08:05:30"},
      {kGastos,
       form.GrelhaGst,
       "14-02-2024 09:30|2|7,50",
       {39, 38, 40, 44, 41},
       "Ana|2|7,5|Portagens|1",
       4,
       "14-02-2024 09:30:00"},
      {kSinistros, form.GrelhaSin, "Ana|15-02-2024", {55, 57, 58, 56}, "Ana|A1|nota|1", 10, "15-02-2024"},
      {kMultas, form.GrelhaMul, "|16-02-2024", {59, 62, 60, 61}, "|60|nota|1", 11, "16-02-2024"}};
  const auto joined = [](const Row& texts) {
    std::string line;
    for (const std::string& text : texts) line += (&text == &texts.front() ? "" : "|") + text;
    return line;
  };
  for (const auto& c : tabs) {
    SCOPED_TRACE(c.tab);
    Show(c.tab);
    EXPECT_EQ(form.ActiveControl(), &c.grid);
    const Row cells = Cells(c.grid, 0);
    EXPECT_EQ(joined(cells), c.cells);
    EXPECT_EQ(c.grid.RowCount(), 30);
    EXPECT_EQ(joined(Fields(c.fields)), c.texts);
    EXPECT_EQ(form.DTPicker1[c.date].Value.ToText(), c.shown);
    form.UserSelectsRow(c.grid, 5);
    EXPECT_EQ(Fields(c.fields), Row(c.fields.size())) << "an empty row empties the details";
    EXPECT_EQ(form.DTPicker1[c.date].Value.ToText(), "15-03-2024");
    EXPECT_FALSE(form.Campo[c.fields[0]].Enabled || form.DTPicker1[c.date].Enabled);
    Press(form.botoes.btCancelar);
    EXPECT_EQ(Cells(c.grid, 0), Row(cells.size())) << "an empty screen has empty grids";
  }
}

TEST_F(ViaturasTabsTest, AnEventThatHasGoneEmptiesTheDetails) {
  AddEvents();
  for (const SeparadorDeEventos& tab : SeparadoresDeEventos()) {
    SCOPED_TRACE(tab.ficha);
    Show(tab.indice);
    EXPECT_EQ(form.Campo[tab.campoId].Text, "1");
    form.UserSelectsRow(form.*tab.grelha, 5);
    Sql(std::string("Delete zor_PV_") + tab.ficha);
    form.UserSelectsRow(form.*tab.grelha, 0);
    EXPECT_EQ(form.Campo[tab.campoId].Text, "");
    EXPECT_EQ(Fields(tab.campos), Row(tab.campos.size()));
  }
}

TEST_F(ViaturasTabsTest, AGridGrowsWithItsEventsAndKeepsNoneOfAnotherVehicle) {
  for (int count = 1; count <= 30; ++count) {
    Event<clMultas>(bd, 1).Escrever();
    if (count < 29) continue;
    form.CarregaViatura(kPlate);
    EXPECT_EQ(form.GrelhaMul.RowCount(), count == 29 ? 30 : 31);
  }
  form.UserSelectsTab(form.SSTab1, kMultas);
  AddVehicle(bd, "99-ZZ-99");
  Type(form.Campo[0], "99-ZZ-99");
  form.UserGoesTo(form.PushButton2);
  EXPECT_EQ(form.GrelhaMul.RowCount(), 31) << "only a cleared screen shrinks it";
  EXPECT_EQ(Cells(form.GrelhaMul, 0), Row(2));
  EXPECT_EQ(form.Campo[61].Text, "");
}

TEST_F(ViaturasTabsTest, APolicyTellsHowLongItStillRuns) {
  const struct {
    const char* end;
    std::int16_t closed;
    const char* line;
  } cases[] = {{"14-03-2024", 0, "Prazo de pagamento ultrapassado!"},
               {"15-03-2024", 0, "Faltam ...  0 dias"},
               {"14-04-2024", 0, "Faltam ...  30 dias"},
               {"14-04-2024", 1, ""}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.end);
    Sql("Delete zor_PV_Seguros");
    Event<clSeguros> seguro(bd, 1);
    seguro.Apolice = "AP";
    seguro.Validade = Date::Parse(c.end);
    seguro.Inactiva = c.closed;
    seguro.Escrever();
    Show(kApolices);
    EXPECT_EQ(form.Titulo[64].Caption, c.line);
    EXPECT_EQ(form.Combo1.ListIndex, 0);
    EXPECT_EQ(Cells(form.Grelha, 0)[2], c.closed == 1 ? "Inactiva" : "Activa");
  }
}

TEST_F(ViaturasTabsTest, AnAccessoryTellsItsDistanceAndCostPerKm) {
  const struct {
    int first, last;
    const char* cost;
    const char* distance;
    const char* perKm;
  } cases[] = {{10000, 12500, "100", "Acessório com 2.500 Km", "Custo/Km 0,04 €"},
               {10000, 11000, "14,98", "Acessório com 1.000 Km", "Custo/Km 0,01 €"},
               {5000, 5000, "100", "Acessório com 0 Km", "Custo/Km 0,00 €"},
               {19900, 0, "100", "Acessório com 100 Km", "Custo/Km 1,00 €"},
               {21000, 0, "100", "Acessório com -1.000 Km", "Custo/Km 0,00 €"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.distance);
    Sql("Delete zor_PV_Acessorios");
    Event<clAcessorios> acessorio(bd, 1);
    acessorio.TipoAcessorio = "GPS";
    acessorio.KmInicial = c.first;
    acessorio.KmFinal = c.last;
    acessorio.Custo = Currency::Parse(c.cost);
    acessorio.Escrever();
    Show(kAcessorios);
    EXPECT_EQ(form.Titulo[2].Caption, c.distance);
    EXPECT_EQ(form.Titulo[51].Caption, c.perKm);
    form.UserSelectsRow(form.GrelhaAces, 3);
    EXPECT_EQ(form.Titulo[2].Caption + form.Titulo[51].Caption, "");
  }
}

TEST_F(ViaturasTabsTest, TheNextInspectionIsWorkedOutOnLoadAndWhenTheDateChanges) {
  Sql("UPDATE zor_PV_Viaturas SET DataMatricula='2023.05.10', Categoria='LIGM'");
  form.CarregaViatura(kPlate);
  EXPECT_EQ(form.Titulo[67].Caption, "Próxima Inspecção, até 10-05-2025");
  EXPECT_EQ(form.Titulo[63].Caption, "Faltam .... 421 dias");
  form.UserSelectsTab(form.SSTab1, kDUC);
  form.UserPicksDate(form.DTPicker1[3], Date::FromParts(2022, 4, 14));
  EXPECT_EQ(form.Titulo[67].Caption, "Próxima Inspecção, até 14-04-2024");
  Sql("UPDATE zor_PV_Viaturas SET Categoria='OUTRA'");
  form.CarregaViatura(kPlate);
  EXPECT_EQ(form.Titulo[67].Caption + form.Titulo[63].Caption, "Próxima Inspecção, até Faltam .... 0 dias");
  Sql("UPDATE zor_PV_Viaturas SET DataMatricula='2016.02.10', Categoria='PESP'");
  EXPECT_THROW(form.CarregaViatura(kPlate), platform::RuntimeError) << "the rule has no month to give";
}

TEST_F(ViaturasTabsTest, AnEventIsEditedInItsOwnFichaAndTheFiguresAreReadAgain) {
  AddEvents();
  Show(kRevisoes);
  host.NextForm([&](platform::Form& ficha) {
    EXPECT_EQ(ficha.Caption, "Revisões");
    Sql("UPDATE zor_PV_Viaturas SET CustoTotal=77, KmActual=21000, Media=5");
    Sql("UPDATE zor_PV_Revisoes SET Custo=1234, Obs='revista'");
  });
  Press(form.zorBotao5);
  EXPECT_EQ(Fields({4, 7, 8}), (Row{"77", "5", "21000"}));
  EXPECT_EQ(form.ActiveControl(), &form.GrelhaManut);
  EXPECT_EQ(Cells(form.GrelhaManut, 0)[2], "1.234,00");
  EXPECT_EQ(form.Campo[54].Text, "nota") << "the details wait for a row to be chosen";
  form.UserSelectsRow(form.GrelhaManut, 0);
  EXPECT_EQ(form.Campo[54].Text, "revista");

  form.UserSelectsTab(form.SSTab1, kApolices);
  host.NextForm([&](platform::Form&) { Sql("UPDATE zor_PV_Viaturas SET CustoTotal=88"); });
  Press(form.zorBotao1);
  EXPECT_EQ(form.Campo[4].Text, "77") << "a policy leaves the figures alone";
}

TEST_F(ViaturasTabsTest, EachEditButtonOpensTheEventShownOrANewOne) {
  AddEvents();
  struct Opened : Ficha {
    Row& seen;
    explicit Opened(Row& s) : seen(s) {}
    void Definir(std::string_view membro, const platform::Variant& valor) override {
      seen.push_back(std::string(membro) + "=" + valor.ToText());
    }
    void Chamar(std::string_view rotina, const platform::Variant& valor) override {
      seen.push_back(std::string(rotina) + " " + valor.ToText());
    }
  };
  Row seen;
  for (const SeparadorDeEventos& tab : SeparadoresDeEventos()) {
    SCOPED_TRACE(tab.ficha);
    ASSERT_TRUE(FormCatalog::Shared().Has(tab.ficha));
    FormCatalog::Shared().Register(tab.ficha, [&seen] { return std::make_unique<Opened>(seen); });
    for (const char* id : {"1", "0"}) {
      Show(tab.indice);
      if (*id == '0') form.UserSelectsRow(form.*tab.grelha, 7);
      seen.clear();
      host.NextForm([](platform::Form&) {});
      Press(form.*tab.editar);
      EXPECT_EQ(seen, (Row{"TipoMostrar=1", std::string("Matricula=") + kPlate, std::string("Seg_Id=") + id,
                           std::string(tab.carrega) + " " + id}));
      EXPECT_EQ(form.SSTab1.Tab, tab.indice);
    }
  }
  Sistema putsBack;
}

TEST_F(ViaturasTabsTest, EachTabHasItsOwnArchive) {
  const int classes[] = {300, 304, 307, 302, 301, 305, 306, 308, 303};
  const int tabs[] = {kDUC,       kApolices, kLeasing,    kInspeccao, kRevisoes,
                      kSinistros, kMultas,   kAcessorios, kGastos};
  for (int i = 0; i < 9; ++i) {
    Sql("Delete zor_ArquivoDigital");
    bd->ExecutarSql("", {"INSERT INTO zor_ArquivoDigital (zor_ArquivoDigital_Entidade, "
                         "zor_ArquivoDigital_TipoEntidade) VALUES ('",
                         value(kPlate), "', ", value(classes[i]), ")"});
    Show(tabs[i]);
    host.NextForm([&](platform::Form& arquivo) {
      EXPECT_EQ(dynamic_cast<platform::SGGrid*>(arquivo.layout.head.grid)->RowCount(), 1) << i;
    });
    Press(form.btArquivo[i]);
    Press(form.botoes.btCancelar);
  }
  form.UserSelectsTab(form.SSTab1, kDUC);
  Press(form.btArquivo[0]);  // without a plate nothing opens
}

TEST_F(ViaturasTabsTest, WhatStandsOnAHiddenTabTakesNoFocus) {
  const auto reachable = [&] {
    std::set<const platform::Control*> seen;
    for (const auto* control = form.Neighbour(nullptr, false); seen.insert(control).second;)
      control = form.Neighbour(control, false);
    return seen;
  };
  EXPECT_FALSE(form.UserGoesTo(form.Campo[20]));
  EXPECT_EQ(reachable().count(&form.Campo[3]), 1U);
  form.UserSelectsTab(form.SSTab1, kRevisoes);
  EXPECT_EQ(reachable().count(&form.Campo[3]), 0U);
  EXPECT_EQ(reachable().count(&form.Campo[53]), 1U);
  EXPECT_EQ(reachable().count(&form.Campo[51]), 0U) << "details are read only";
  for (int i = 0; i <= form.Campo.UBound(); ++i) EXPECT_TRUE(form.Campo.Has(i)) << i;
}

}  // namespace
}  // namespace zorCrmParvel
