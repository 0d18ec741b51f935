#include "console/record_command.h"

#include <nlohmann/json.hpp>
#include <sstream>

#include "support/database_test.h"

namespace console {
namespace {

using namespace testing_support;

/// A vehicle and a driver with one event of each kind, every column told apart by its value.
class RecordCommandTest : public DatabaseTest {
 protected:
  RecordCommandTest() {
    AddFleet(bd, 10000);
    for (const char* table : {"Modelos", "Categorias", "Departamentos", "Companhias", "TiposManut",
                              "TiposSeguro", "TiposAcessorios"})
      Sql(std::string("INSERT INTO zor_PV_") + table + " (Codigo, Nome) VALUES ('X', '" + table + "')");
    Sql("UPDATE zor_PV_Viaturas SET Modelo='X', Categoria='X', Departamento='X', Responsavel='Rui', "
        "Combustivel=2, AnoMatricula=2020, DataMatricula='2020.01.02', NoMotor='motor', NoChassis='chassis', "
        "Cilindrada='1600', DataKmInicial='2020.01.03', KmActual=11000, Media=6.5, CustoMedioKmC=0.1, "
        "CustoMedioKmT=0.2, CustoTotal=300, CompLeasing='X', NoContrato='N9', ValContrato='2020.01.04', "
        "ValorInicial=1, ValorResidual=2, Mensalidade=3, DataPrxRev='2025.01.05', KmPrxRev=20000, "
        "DataPrxInsp='2025.01.06', DataSelo='2025.01.07', SeloPago=1, DtDescarga='1899.12.30', Obs='nota'");
    for (const char* event :
         {"Gastos (Matricula, Motorista, Obs, Data, Viagem, Qtd, Km, ValorUn, Custo, TipoGasto) VALUES "
          "('12-AB-34', '1', 'g1', '2024.01.01 08:30:00', 'NORTE', 40.5, 10500, 1.5, 60.75, 'GASOLEO')",
          "Gastos (Matricula, Motorista, Obs, Data, Viagem, Qtd, Km, ValorUn, Custo, TipoGasto) VALUES "
          "('12-AB-34', '9', 'g2', '2024.01.02', '', 1, 0, 5, 5, 'PORTAGEM')",
          "Seguros (Matricula, Companhia, TipoSeguro, Apolice, Validade, Premio, Franquia, DataInicio, "
          "Inactiva) VALUES ('12-AB-34', 'X', 'X', 'A1', '2024.02.01', 300, 20, '2023.02.01', 0)",
          "Revisoes (Matricula, TipoManut, Obs, Data, Km, Custo) VALUES ('12-AB-34', 'X', 'r', '2024.03.01', "
          "10100, 90)",
          "Inspecoes (Matricula, Obs, Data, Km, Custo) VALUES ('12-AB-34', 'i', '2024.04.01', 10200, 30)",
          "Multas (Matricula, Motorista, Obs, Data, ValorMulta, Responsabilidade) VALUES ('12-AB-34', '1', "
          "'m', '2024.05.01', 60, 1)",
          "Sinistros (Matricula, Motorista, Obs, Data, LocalAc, Responsavel, Custo) VALUES ('12-AB-34', '1', "
          "'s', '2024.06.01', 'A1', 1, 70)",
          "Acessorios (Matricula, TipoAcessorio, Obs, Data, Marca, Modelo, KmInicial, KmFinal, Qtd, Custo, "
          "DataVal) VALUES ('12-AB-34', 'X', 'a', '2024.07.01', 'mar', 'mod', 1, 2, 3, 4, '2025.07.01')"})
      Sql(std::string("INSERT INTO zor_PV_") + event);
    for (const char* row : {"0, '2030.01.01'", "7, '2031.01.01'", "99, NULL"})
      Sql(std::string("INSERT INTO zor_CartasCond (Motorista, TipoCarta, DataValidade) VALUES ('1', ") + row +
          ")");
    AddVehicle(bd, "99-ZZ-99");
    Sql("INSERT INTO zor_Funcionarios (Codigo, Nome) VALUES ('O''R', 'Outro')");
  }
  template <typename Printer>
  std::string Told(const Printer& printer, const std::string& key, bool json) {
    std::ostringstream out;
    EXPECT_TRUE(printer(bd, key, json, out));
    return out.str();
  }
};

TEST_F(RecordCommandTest, AVehicleIsToldWhole) {
  EXPECT_EQ(Told(PrintVehicle, "12-ab-34", false), R"(Matricula      12-AB-34
Marca          Renault
Modelo         Modelos
Categoria      Categorias
Departamento   Departamentos
Responsavel    Rui
Combustivel    GPL
AnoMatricula   2020
DataMatricula  02-01-2020
NoMotor        motor
NoChassis      chassis
Cilindrada     1600
KmInicial      10000
DataKmInicial  03-01-2020
KmActual       11000
Media          6,5
CustoMedioKmC  0,1
CustoMedioKmT  0,2
CustoTotal     300
CompLeasing    X
NoContrato     N9
ValContrato    04-01-2020
ValorInicial   1
ValorResidual  2
Mensalidade    3
DataPrxRev     05-01-2025
KmPrxRev       20000
DataPrxInsp    06-01-2025
DataSelo       07-01-2025
SeloPago       Sim
Inactiva       0
Obs            nota

Gastos: 2
Data                 Tipo        Qtd  ValorUn  Custo     Km  Motorista  Viagem  Obs
-------------------  ---------  ----  -------  -----  -----  ---------  ------  ---
02-01-2024           Portagens     1        5      5      0  9                  g2
01-01-2024 08:30:00  Gasóleo    40,5      1,5  60,75  10500  1          NORTE   g1

Apólices de seguro: 1
Apolice  Companhia   Tipo         DataInicio  Validade    Premio  Franquia  Inactiva
-------  ----------  -----------  ----------  ----------  ------  --------  --------
A1       Companhias  TiposSeguro  01-02-2023  01-02-2024     300        20         0

Revisões: 1
Data        Tipo           Km  Custo  Obs
----------  ----------  -----  -----  ---
01-03-2024  TiposManut  10100     90  r

Inspecções: 1
Data           Km  Custo  Obs
----------  -----  -----  ---
01-04-2024  10200     30  i

Multas: 1
Data        Motorista  ValorMulta  Responsabilidade  Obs
----------  ---------  ----------  ----------------  ---
01-05-2024  1                  60                 1  m

Sinistros: 1
Data        Motorista  LocalAc  Responsavel  Custo  Obs
----------  ---------  -------  -----------  -----  ---
01-06-2024  1          A1                 1     70  s

Acessórios: 1
Data        Tipo             Marca  Modelo  KmInicial  KmFinal  Qtd  Custo  DataVal     Obs
----------  ---------------  -----  ------  ---------  -------  ---  -----  ----------  ---
01-07-2024  TiposAcessorios  mar    mod             1        2    3      4  01-07-2025  a
)");
  const auto json = nlohmann::ordered_json::parse(Told(PrintVehicle, "12-AB-34", true));
  EXPECT_EQ(json.size(), 40U);
  EXPECT_EQ(json["SeloPago"], true);
  EXPECT_TRUE(json["DtDescarga"].is_null()) << "the zero date is none";
  EXPECT_EQ(json["gastos"][0].dump(),
            R"({"Data":"2024-01-02","Tipo":"Portagens","Qtd":1.0,"ValorUn":5.0,"Custo":5.0,"Km":0.0,)"
            R"("Motorista":"9","Viagem":"","Obs":"g2"})");
  for (const char* kind : {"apolices", "revisoes", "inspeccoes", "multas", "sinistros", "acessorios"})
    EXPECT_EQ(json[kind].size(), 1U) << kind;
  int code = 0;
  for (const char* fuel : {"Diesel", "Gasolina", "GPL", "Eléctrico"}) {
    Sql("UPDATE zor_PV_Viaturas SET Combustivel=" + std::to_string(code++));
    EXPECT_EQ(nlohmann::json::parse(Told(PrintVehicle, "12-AB-34", true))["Combustivel"], fuel);
  }
  EXPECT_EQ(nlohmann::json::parse(Told(PrintVehicle, "99-ZZ-99", true))["multas"], nlohmann::json::array());
}

TEST_F(RecordCommandTest, ADriverIsToldWhole) {
  EXPECT_EQ(Told(PrintDriver, "1", false), R"(Codigo                  1
Nome                    Ana
TipoCartaCond           0
Inactivo                0

Classes da carta: 3
Classe                           Validade
-------------------------------  ----------
B    - Ligeiros                  01-01-2030
C+E  - Reboques e Semi-Reboques  01-01-2031
99

Gastos: 1
Data                 Matricula  Tipo      Qtd  Custo     Km  Viagem  Obs
-------------------  ---------  -------  ----  -----  -----  ------  ---
01-01-2024 08:30:00  12-AB-34   Gasóleo  40,5  60,75  10500  NORTE   g1

Multas: 1
Data        Matricula  ValorMulta  Responsabilidade  Obs
----------  ---------  ----------  ----------------  ---
01-05-2024  12-AB-34           60                 1  m

Sinistros: 1
Data        Matricula  LocalAc  Responsavel  Custo  Obs
----------  ---------  -------  -----------  -----  ---
01-06-2024  12-AB-34   A1                 1     70  s
)");
  const auto json = nlohmann::json::parse(Told(PrintDriver, "1", true));
  EXPECT_EQ(
      json["cartas"].dump(),
      R"([{"Classe":"B    - Ligeiros","Validade":"2030-01-01"},{"Classe":"C+E  - Reboques e Semi-Reboques",)"
      R"("Validade":"2031-01-01"},{"Classe":"99","Validade":null}])");
  EXPECT_EQ(json.size(), 38U);
  for (const char* kind : {"gastos", "multas", "sinistros"}) EXPECT_EQ(json[kind].size(), 1U) << kind;
  EXPECT_EQ(Told(PrintDriver, "o'r", false), "Codigo                  O'R\nNome                    Outro\n");
  std::ostringstream out;
  EXPECT_FALSE(PrintDriver(bd, "D'OR", false, out) || PrintVehicle(bd, "D'OR", false, out));
  EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace console
