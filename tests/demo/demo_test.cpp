#include "demo/demo.h"

#include <nlohmann/json.hpp>
#include <sstream>

#include "console/alerts_command.h"
#include "console/program.h"
#include "support/database_test.h"

namespace demo {

using namespace console;
namespace {

using namespace testing_support;

using DemoTest = DatabaseTest;

TEST_F(DemoTest, FillsAFleetThatIsTheSameEachTimeAndHasAlerts) {
  const auto again = MemoryDatabase();
  FillDemo(bd.shared());
  FillDemo(again);
  for (const char* table : {"Categorias",      "Companhias", "Departamentos", "Marcas",       "Modelos",
                            "TiposAcessorios", "TiposManut", "TiposSeguro",   "Viagens",      "TiposGastos",
                            "Viaturas",        "Gastos",     "Seguros",       "Revisoes",     "Inspecoes",
                            "Multas",          "Sinistros",  "Acessorios",    "Funcionarios", "CartasCond"}) {
    const std::string name = table;
    const bool drivers = name == "Funcionarios" || name == "CartasCond";
    const std::string all = (drivers ? "SELECT * FROM zor_" : "SELECT * FROM zor_PV_") + name;
    EXPECT_FALSE(Rows(bd, all).empty()) << name;
    EXPECT_EQ(Rows(bd, all), Rows(again, all)) << name;
  }
  std::ostringstream out;
  EXPECT_EQ(PrintAlerts(bd, {.json = true}, out, out), kDue);
  const auto alerts = nlohmann::json::parse(out.str());
  for (const auto& [family, rows] : alerts.items())
    EXPECT_EQ(rows.empty(), family == "inspeccoes") << family;  // those follow from the categories
}

}  // namespace
}  // namespace demo
