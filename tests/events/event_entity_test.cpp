#include "events/cost_sums.h"
#include "events/gastos.h"
#include "events/incidents.h"
#include "events/seguros.h"
#include "events/upkeep.h"
#include "support/database_test.h"

namespace zorCrmParvel {
namespace {

using platform::Currency;
using platform::Date;
using namespace testing_support;

Date Day(int day, int hour = 0) { return Date::FromParts(2024, 1, day, hour); }

class EventEntityTest : public RecordedTest {
 protected:
  EventEntityTest() {
    gasto.bd = bd;
    AddExpenseTypes(bd);
  }
  void Add(const std::string& plate, Date date) { AddExpense(bd, plate, date, "GASOLEO", "1", "2", 3); }
  /// Stands the entity on a record, as a ficha does before it walks.
  void StandOn(std::int32_t id) {
    gasto.Id = id;
    ASSERT_TRUE(gasto.Ler());
  }
  std::int32_t Next() {
    EXPECT_TRUE(gasto.LerProximo());
    return gasto.Id;
  }
  /// The records that the arrows lead to: "previous < next".
  std::string Around(std::int32_t id) {
    StandOn(id);
    EXPECT_TRUE(gasto.LerAnterior());
    const std::string previous = std::to_string(gasto.Id);
    StandOn(id);
    return previous + " < " + std::to_string(Next());
  }

  clGastos gasto;
};

TEST_F(EventEntityTest, WalksByPlateAndDayAndHoldsAtTheEnds) {
  Add("A", Day(1));   // 1
  Add("B", Day(1));   // 2
  Add("A", Day(10));  // 3
  EXPECT_TRUE(gasto.LerPrimeiro());
  EXPECT_EQ(gasto.Id, 1);
  EXPECT_TRUE(gasto.LerUltimo());
  EXPECT_EQ(gasto.Id, 2);
  EXPECT_EQ(Around(1), "1 < 3");
  EXPECT_EQ(Around(3), "1 < 2") << "from a vehicle's last event to the next vehicle's first";
  EXPECT_EQ(Around(2), "3 < 2");

  Sql("Delete zor_PV_Gastos");
  for (const int hour : {8, 9, 10}) Add("A", Day(5, hour));  // 4, 5, 6
  Add("A", Day(6));                                          // 7
  EXPECT_EQ(Around(4), "5 < 5") << "the events of one day are one place, where the walk stops";
  EXPECT_EQ(Around(5), "5 < 5");
  EXPECT_EQ(Around(6), "5 < 5");
  EXPECT_EQ(Around(7), "6 < 7");

  Sql("Delete zor_PV_Gastos WHERE Gst_Id<6");
  gasto.Codigo = "0";
  gasto.Data = Day(1);
  EXPECT_EQ(Next(), 7) << "a blank place skips the first real event";
  gasto.Codigo = "012345678901234567890";  // compares on its first 15 characters
  EXPECT_EQ(Next(), 7);
  gasto.Codigo = "C";
  EXPECT_THROW(gasto.LerProximo(), platform::RuntimeError);
}

TEST_F(EventEntityTest, WritesByIdAndKeepsThePlateForEver) {
  Add("A", Day(1, 13));
  StandOn(1);
  gasto.Codigo = "B";
  gasto.Obs = std::string(200, 'o');
  gasto.Escrever();
  EXPECT_EQ(Rows(bd, "SELECT Matricula, Obs, Data FROM zor_PV_Gastos"),
            (Table{{"A", std::string(150, 'o'), "01-01-2024 13:00:00"}}));
  gasto.Id = 99;  // removed meanwhile: it comes back under a new id
  gasto.Escrever();
  EXPECT_EQ(Rows(bd, "SELECT Gst_Id, Matricula FROM zor_PV_Gastos ORDER BY Gst_Id"),
            (Table{{"1", "A"}, {"2", "B"}}));
  gasto.Id = 0;
  gasto.Custo = 77;
  EXPECT_FALSE(gasto.Ler());
  EXPECT_EQ(gasto.Custo, Currency(77));
  EXPECT_TRUE(gasto.Anular()) << "removing nothing is no failure";
}

TEST_F(EventEntityTest, TheIdIsThatOfTheRowWhichCame) {
  class AnyRow : public RecordingDataAccess {
   public:
    using RecordingDataAccess::RecordingDataAccess;

   protected:
    RecordsetRef OpenForReading(const std::string& statement) override {
      return RecordingDataAccess::OpenForReading(statement.substr(0, statement.find(" WHERE")));
    }
  };
  const DataAccessRef anyRow = platform::MakeRef<AnyRow>(bd);
  const auto idRead = [&](auto&& event) {
    event.Escrever();
    event.bd = anyRow;
    event.Id = 99;
    EXPECT_TRUE(event.Ler());
    return event.Id;
  };
  EXPECT_EQ(idRead(EventOf<clGastos>(bd, "A")), 1);
  EXPECT_EQ(idRead(EventOf<clInspecoes>(bd, "A")), 1);
  EXPECT_EQ(idRead(EventOf<clSeguros>(bd, "A")), 1);
  EXPECT_EQ(idRead(EventOf<clRevisoes>(bd, "A")), 99) << "here and elsewhere the id stays";
}

TEST_F(EventEntityTest, TheLookupIsLimitedToTheVehicleAndReturnsTheId) {
  AddDriver(bd, "1", "Ana");
  Add("A", Day(1));
  Add("B", Day(2));
  gasto.Codigo = "B";
  host.NextLookup("2");
  EXPECT_EQ(gasto.MostraLista(1), "2");
  EXPECT_EQ(host.lookups.back().rows, (Table{{"2", "B", "02-01-2024", "Ana"}}));
  host.NextLookup("");
  gasto.MostraLista(0);
  EXPECT_EQ(host.lookups.back().rows.size(), 2U);
  gasto.Codigo = "B'";
  EXPECT_THROW(gasto.MostraLista(1), platform::RuntimeError);
  EXPECT_FALSE(gasto.MostraMapa());
}

TEST_F(EventEntityTest, CostsAreSummedExactly) {
  Add("A", Day(1));
  AddExpense(bd, "A", Day(2), "PORTAGEM", "1", "0,3333", 0);
  AddExpense(bd, "A", Day(3), "PERDIDO", "1", "1000", 0);  // its type is lost: in no sum
  EXPECT_EQ(Tools::SomaCustoGastos(bd, "A").ToText(), "2,3333");
  EXPECT_EQ(Tools::SomaCustoGastos(bd, "Z"), Currency(0));
  for (const char* plate : {"A", "B"}) {
    AddEvent<clRevisoes>(bd, plate);
    AddEvent<clAcessorios>(bd, plate);
  }
  Sql("UPDATE zor_PV_Revisoes SET Custo=5");
  Sql("UPDATE zor_PV_Acessorios SET Custo=3");
  EXPECT_EQ(Tools::SomaCustoRevisoes(bd, "A"), Currency(5));
  EXPECT_EQ(Tools::SomaCustoRevisoes(bd, ""), Currency(10))
      << "an empty plate means all vehicles, here alone";
  EXPECT_EQ(Tools::SomaCustoAcessorios(bd, ""), Currency(0));
  EXPECT_EQ(Tools::SomaCustoAcessorios(bd, "B"), Currency(3));
  EXPECT_EQ(Rows(bd, "SELECT DataVal FROM zor_PV_Acessorios"), (Table{{"NULL"}, {"NULL"}}));
  Sql("UPDATE zor_PV_Revisoes SET Custo=NULL");
  EXPECT_THROW(Tools::SomaCustoRevisoes(bd, "A"), platform::RuntimeError);
}

}  // namespace
}  // namespace zorCrmParvel
