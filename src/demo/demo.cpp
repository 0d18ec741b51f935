#include "demo/demo.h"

#include "demo/demo_parts.h"
#include "platform/runtime_error.h"

namespace demo {

using namespace zorCrmParvel;

void RequireEmpty(const DataAccessRef& bd, const std::string& elsewhere) {
  for (const char* table :
       {"zor_PV_Categorias", "zor_PV_Companhias", "zor_PV_Departamentos", "zor_PV_Marcas", "zor_PV_Modelos",
        "zor_PV_TiposAcessorios", "zor_PV_TiposGastos", "zor_PV_TiposManut", "zor_PV_TiposSeguro",
        "zor_PV_Viagens", "zor_PV_Viaturas", "zor_Funcionarios"}) {
    RecordsetRef rows;
    bd->AbrirLeitura("", {"SELECT Top 1 * From ", fixed(table)}, rows);
    if (!rows->Eof())
      throw platform::RuntimeError(
          platform::kKeyInUse, "demo",
          "A base de dados já tem registos: os dados de demonstração só entram numa base de dados vazia. " +
              elsewhere);
  }
}

void FillDemo(const std::shared_ptr<zorCrmParvel::Store>& database, const std::string& elsewhere) {
  RequireEmpty(database, elsewhere);
  zorCrmParvel::LargeBatch batch(*database);
  DemoDice dice;
  FillDemoTables(database);
  FillDemoSettings(database);
  const auto drivers = FillDemoDrivers(database, dice);
  FillDemoFleet(database, drivers, dice);
  FillDemoEvents(database, drivers, dice);
  batch.Commit();
}

}  // namespace demo
