#include "entry/dates.h"

#include "drivers/motoristas_form.h"
#include "entry/new_event.h"
#include "events/gastos_form.h"
#include "host/sistema.h"
#include "support/database_test.h"
#include "vehicles/viaturas_form.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

class DatesTest : public DatabaseTest {
 protected:
  DatesTest() { AddFleet(bd, 10000); }
  Sistema sistema;
};

TEST_F(DatesTest, DatesThatWouldBecomeTodayAreNamedAndCanBeLeftOut) {
  Motoristas driver;
  driver.mybd = bd;
  driver.Load();
  driver.CarregaFicha("1");
  driver.UserGoesTo(driver.Campo[1]);
  const auto unset = [&] {
    return entry::UnsetDatesOn(driver, entry::StoredDatesOf(bd, *entry::DatedRecordOn(driver)));
  };
  const auto dates = unset();
  std::string captions;
  for (const entry::UnsetDate& date : dates) captions += date.caption + std::string(";");
  EXPECT_EQ(
      captions,
      "emissão do passaporte;validade do passaporte;início do cartão de condutor;fim do cartão de condutor;"
      "próxima descarga;");
  entry::LeaveWithout(driver, dates);
  EXPECT_TRUE(unset().empty());
  Press(driver.botoes.btConf);
  EXPECT_EQ(Rows(bd, "SELECT Codigo FROM zor_Funcionarios WHERE ValidadePassa > '2000.01.01'").size(), 0U);
}

TEST_F(DatesTest, DatesAreToldOfDriversAndVehiclesAlone) {
  Gastos form;
  form.mybd = bd;
  form.Load();
  form.Campo[0].Text = "12-AB-34";
  EXPECT_FALSE(entry::DatedRecordOn(form));
  EXPECT_TRUE(entry::UnsetDatesOn(form, {.empty = {0, 8}}).empty());
  EXPECT_TRUE(entry::EventButtonsOf(form).empty());
  Motoristas driver;
  driver.mybd = bd;
  driver.Load();
  EXPECT_FALSE(entry::DatedRecordOn(driver)) << "nothing is written yet";
  bd->ExecutarSql("", "UPDATE zor_Funcionarios SET ValidadePassa = '2030-05-06' WHERE Codigo = '1'");
  driver.CarregaFicha("1");
  const auto record = entry::DatedRecordOn(driver);
  EXPECT_TRUE(record->driver);
  EXPECT_EQ(record->key, "1");
  EXPECT_EQ(entry::StoredDatesOf(bd, *record).empty, (std::vector<int>{5, 8, 9, 10}));
  bd->ExecutarSql("", "UPDATE zor_PV_Viaturas SET DataPrxInsp = '2030-05-06'");
  const entry::StoredDates vehicle = entry::StoredDatesOf(bd, {false, "12-AB-34"});
  EXPECT_FALSE(vehicle.is_new);
  EXPECT_EQ(vehicle.empty, (std::vector<int>{0, 8, 12}));
}

TEST_F(DatesTest, ANewVehicleCanBeLeftWithoutARevision) {
  Viaturas form;
  form.mybd = bd;
  form.Load();
  EXPECT_FALSE(entry::LacksRevision(form)) << "nothing is written yet";
  form.Campo[0].Text = "99-ZZ-99";
  const entry::StoredDates stored = entry::StoredDatesOf(bd, *entry::DatedRecordOn(form));
  std::string captions;
  for (const entry::UnsetDate& date : entry::UnsetDatesOn(form, stored))
    captions += date.caption + std::string(";");
  EXPECT_EQ(captions, "fim do contrato;próxima revisão;próxima inspecção;próxima descarga;");
  EXPECT_TRUE(entry::LacksRevision(form));
  entry::LeaveWithout(form, entry::UnsetDatesOn(form, stored));
  EXPECT_FALSE(entry::LacksRevision(form));
  EXPECT_EQ(form.Campo[53].Text, "9999999");
  EXPECT_TRUE(entry::UnsetDatesOn(form, stored).empty());
  EXPECT_TRUE(entry::RegistersToday(form, stored));
  form.DTPicker1[3].Value = platform::Date::FromParts(2020, 5, 4);
  EXPECT_FALSE(entry::RegistersToday(form, stored)) << "a date was given";
  AddVehicle(bd, "99-ZZ-99");
  form.DTPicker1[3].Value = platform::Today();
  EXPECT_FALSE(entry::RegistersToday(form, entry::StoredDatesOf(bd, *entry::DatedRecordOn(form))))
      << "it is in the fleet already";
}

}  // namespace
}  // namespace zorCrmParvel
