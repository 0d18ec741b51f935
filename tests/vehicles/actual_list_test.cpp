#include "vehicles/actual_list.h"

#include <tuple>

#include "support/database_test.h"
#include "support/grid_window.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

class ActualListTest : public DatabaseTest {
 protected:
  ActualListTest() {
    host.clock = platform::Date::FromParts(2024, 4, 10);
    AddVehicle(bd, "A");
    list.mybd = bd;
    list.ICrmVwList_GridMaster(&form.grid);
  }
  void Start(std::int16_t tipo) {
    list.Tipo = tipo;
    list.ICrmVwList_Iniciar();
  }
  /// The entry that the list adds to the menu of a row, unless it is another command.
  void Command(long row, long command = 0) {
    form.grid.SetRow(row);
    PopUpMenu menu;
    list.ICrmVwList_BeforePopUpViewListEdit(menu);
    ASSERT_EQ(menu.Items().back().caption, "Actualizar");
    menu.Command = command == 0 ? menu.Items().back().id : command;
    list.ICrmVwList_ExecutePopUpViewListEdit(menu);
  }
  std::string Shown(long row, std::size_t column) { return form.grid.CellText(row, column); }

  GridWindow form;
  VwLstActual list;
};

TEST_F(ActualListTest, AnUnknownKindLeavesTheGridAlone) {
  Start(3);
  const RecordsetRef before = form.grid.DataSource();
  for (const int kind : {-1, 0, 4}) {
    Start(static_cast<std::int16_t>(kind));
    EXPECT_EQ(list.ICrmVwList_Name(), "");
    EXPECT_TRUE(form.grid.DataSource() == before) << kind;
  }
}

TEST_F(ActualListTest, ADownloadMovesOnFromTheDateShown) {
  AddDriver(bd, "1", "Ana");
  Sql("UPDATE zor_PV_Viaturas SET Tacografo=1, Obs='fica', DtDescarga='2023.01.10'");
  Sql("UPDATE zor_Funcionarios SET NoCartaoCondutor='9', DtDescarga='2024.02.10'");
  Start(1);
  Command(0);
  EXPECT_EQ(Shown(0, 2), "06-02-2023") << "a late download stays late";
  EXPECT_EQ(Rows(bd, "SELECT Obs FROM zor_PV_Viaturas"), (Table{{"fica"}}));
  Start(2);
  Command(0);
  EXPECT_EQ(Shown(0, 2), "08-03-2024");
  EXPECT_EQ(Rows(bd, "SELECT Nome FROM zor_Funcionarios"), (Table{{"Ana"}}));
  Sql("UPDATE zor_Funcionarios SET DtDescarga=NULL");
  Start(2);
  EXPECT_EQ(NumberOf([&] { Command(0); }), platform::kTypeMismatch);
}

TEST_F(ActualListTest, RoadTaxMovesToTheEndOfItsPeriod) {
  // DataMatricula, DataSelo and SeloPago before and after.
  const std::tuple<const char*, const char*, const char*, Table> cases[] = {
      {"2015.03.07", "2023.03.31", "1", {{"07-03-2015", "31-03-2025", "False"}}},
      {"2015.05.07", "2023.05.31", "1", {{"07-05-2015", "31-05-2024", "False"}}},
      {"2015.05.07", "2024.05.31", "1", {{"07-05-2015", "31-05-2024", "True"}}},
      {"2015.03.07", "1899.12.30", "1", {{"31-03-2025", "00:00:00", "False"}}},
  };
  for (const auto& [registered, tax, paid, after] : cases) {
    SCOPED_TRACE(std::string(registered) + " " + tax);
    Sql(std::string("UPDATE zor_PV_Viaturas SET DataMatricula='") + registered + "', DataSelo='" + tax +
        "', SeloPago=" + paid);
    Start(3);
    Command(0);
    EXPECT_EQ(Rows(bd, "SELECT DataMatricula, DataSelo, SeloPago FROM zor_PV_Viaturas"), after);
    EXPECT_EQ(Shown(0, 2), after[0][1]);
  }
}

TEST_F(ActualListTest, OnlyItsCommandOnARowDoesAnything) {
  Sql("UPDATE zor_PV_Viaturas SET Tacografo=1, DtDescarga='2024.01.10'");
  Start(1);
  Command(-1);
  Command(0, 901);
  EXPECT_EQ(Rows(bd, "SELECT DtDescarga FROM zor_PV_Viaturas"), (Table{{"10-01-2024"}}));
}

}  // namespace
}  // namespace zorCrmParvel
