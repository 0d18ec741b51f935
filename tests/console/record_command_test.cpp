#include "console/record_command.h"

#include <sstream>

#include "support/database_test.h"
#include "support/sample_fleet.h"
#include "support/whole_text.h"

namespace console {
namespace {

using namespace testing_support;

using RecordCommandTest = DatabaseTest;

TEST_F(RecordCommandTest, VehiclesAndDriversAreToldWhole) {
  AddSampleFleet(bd);
  Sql("UPDATE zor_PV_Viaturas SET SeloPago=1, DtDescarga='1899.12.30' WHERE Matricula='A'");
  for (const char* row : {"'A', 0, '2030.01.01'", "'A', 7, '2031.01.01'", "'A', 99, NULL", "'A', -1, NULL"})
    Sql(std::string("INSERT INTO zor_CartasCond (Motorista, TipoCarta, DataValidade) VALUES (") + row + ")");
  Sql("INSERT INTO zor_Funcionarios (Codigo, Nome) VALUES ('O''R', 'Outro')");
  int fuel = 0;
  for (const char* plate : {"D", "E", "F", "G"}) {
    AddVehicle(bd, plate);
    Sql("UPDATE zor_PV_Viaturas SET Combustivel=" + std::to_string(fuel++) + " WHERE Matricula='" + plate +
        "'");
  }
  std::ostringstream out;
  for (const bool json : {false, true}) {
    for (const char* plate : {"A", "b", "C", "D", "E", "F", "G"})
      EXPECT_TRUE(PrintVehicle(bd, plate, json, out));
    for (const char* code : {"A", "b", "C", "o'r"}) EXPECT_TRUE(PrintDriver(bd, code, json, out));
  }
  EXPECT_FALSE(PrintDriver(bd, "D'OR", false, out) || PrintVehicle(bd, "D'OR", false, out));
  ExpectWholeText(PARVEL_SOURCE_DIR "/tests/console/records.txt", out.str());
}

}  // namespace
}  // namespace console
