#include "masterdata/code_table.h"
#include "setup/base_codes.h"
#include "setup/first_steps.h"
#include "support/database_test.h"
#include "support/fleet.h"

namespace {

using namespace testing_support;
using setup::Step;

class SetupTest : public DatabaseTest {
 protected:
  void Sql(const char* statement) { bd->ExecutarSql("", statement); }
};

TEST_F(SetupTest, BaseCodesLeaveAloneWhatIsThereAndAddNothingTwice) {
  AddCode<zorCrmParvel::clCategorias>(bd, "LIGP", "Carros da casa");
  const long written = setup::WriteBaseCodes(bd);
  EXPECT_GT(written, 40);
  EXPECT_EQ(setup::WriteBaseCodes(bd), 0);
  EXPECT_EQ(Rows(bd, "SELECT Nome FROM zor_PV_Categorias WHERE Codigo='LIGP'")[0][0], "Carros da casa");
  EXPECT_EQ(Rows(bd, "SELECT Codigo FROM zor_PV_Categorias").size(), 9U);
  EXPECT_EQ(Rows(bd, "SELECT Codigo FROM zor_PV_TiposGastos WHERE Combustivel=1").size(), 4U);
  for (const std::string table :
       {"Categorias", "TiposGastos", "TiposManut", "TiposSeguro", "TiposAcessorios"})
    EXPECT_TRUE(Rows(bd, "SELECT Codigo FROM zor_PV_" + table + " WHERE Nome='' OR Nome IS NULL").empty())
        << table;
}

TEST_F(SetupTest, StepsAreDoneByWhatIsThere) {
  EXPECT_TRUE(setup::StepsDone(bd).empty());
  setup::WriteBaseCodes(bd);
  AddDriver(bd, "1", "Ana");
  EXPECT_EQ(setup::StepsDone(bd), (std::set{Step::kCodes, Step::kDrivers}));
  const std::pair<const char*, Step> steps[] = {{"Viaturas", Step::kVehicles},
                                                {"Gastos", Step::kFill},
                                                {"Seguros", Step::kDueDates},
                                                {"Inspecoes", Step::kDueDates}};
  for (const auto& [table, step] : steps) {
    Sql((std::string("INSERT INTO zor_PV_") + table + " (Matricula) VALUES ('10-GJ-10')").c_str());
    EXPECT_EQ(setup::StepsDone(bd), (std::set{Step::kCodes, Step::kDrivers, step})) << table;
    Sql((std::string("DELETE FROM zor_PV_") + table).c_str());
  }
}

}  // namespace
