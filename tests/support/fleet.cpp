#include "support/fleet.h"

#include "drivers/motoristas.h"
#include "events/gastos.h"
#include "events/incidents.h"
#include "events/seguros.h"
#include "events/upkeep.h"
#include "masterdata/tipos_gastos.h"
#include "vehicles/viaturas.h"

namespace testing_support {

using namespace zorCrmParvel;
using platform::Currency;

void AddVehicle(const DataAccessRef& bd, const std::string& plate, int kmInicial, int qtdInicial) {
  AddCode<clMarcas>(bd, "REN", "Renault");
  clViaturas viatura;
  viatura.bd = bd;
  viatura.Matricula = plate;
  viatura.Marca = "REN";
  viatura.KmInicial = kmInicial;
  viatura.KmActual = kmInicial;
  viatura.QtdInicial = qtdInicial;
  viatura.Escrever();
}

void AddDriver(const DataAccessRef& bd, const std::string& code, const std::string& name) {
  AddCode<clMotoristas>(bd, code, name);
}

void AddExpenseTypes(const DataAccessRef& bd) {
  clTiposGastos tipo;
  tipo.bd = bd;
  tipo.Codigo = "GASOLEO";
  tipo.Descrição = "Gasóleo";
  tipo.Combustivel = 1;
  tipo.CustoUnit = Currency::Parse("1,659");
  tipo.Escrever();
  tipo.Codigo = "PORTAGEM";
  tipo.Descrição = "Portagens";
  tipo.Combustivel = 0;
  tipo.CustoUnit = 0;
  tipo.Escrever();
}

void AddFleet(const DataAccessRef& bd, int kmInicial) {
  AddVehicle(bd, "12-AB-34", kmInicial);
  AddDriver(bd, "1", "Ana");
  AddExpenseTypes(bd);
}

void AddExpense(const DataAccessRef& bd, const std::string& plate, platform::Date date,
                const std::string& type, const std::string& quantity, const std::string& cost, int km) {
  EventOf<clGastos> gasto(bd, plate);
  gasto.Data = date;
  gasto.TipoGasto = type;
  gasto.Motorista = "1";
  gasto.Qtd = Currency::Parse(quantity);
  gasto.Custo = Currency::Parse(cost);
  gasto.Km = km;
  gasto.Escrever();
}

void AddEvents(const DataAccessRef& bd, const std::string& plate) {
  AddExpenseTypes(bd);
  AddExpense(bd, plate, platform::Date::FromParts(2024, 1, 1), "PORTAGEM", "1", "2", 3);
  AddEvent<clAcessorios>(bd, plate);
  AddEvent<clSeguros>(bd, plate);
  AddEvent<clSinistros>(bd, plate);
  AddEvent<clMultas>(bd, plate);
  AddEvent<clRevisoes>(bd, plate);
  AddEvent<clInspecoes>(bd, plate);
}

}  // namespace testing_support
