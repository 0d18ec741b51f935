#include "console/demo.h"

#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "console/alerts_command.h"
#include "console/program.h"
#include "events/expense_figures.h"
#include "support/database_test.h"

namespace console {
namespace {

using namespace testing_support;

/// A value that stands for none.
bool IsNothing(const std::string& value) {
  static const std::set<std::string> nothing = {"", "0", "NULL", "00:00:00", "False"};
  return nothing.count(value) > 0;
}

class DemoTest : public DatabaseTest {
 protected:
  void ExpectColumnsFilled() const;
  void ExpectCodesThatExist() const;
  void ExpectFiguresOfTheFichas() const;
  void ExpectSomethingDue() const;
};

TEST_F(DemoTest, TheFleetIsCompleteAndSound) {
  FillDemo(bd.shared());
  ExpectColumnsFilled();
  ExpectCodesThatExist();
  ExpectFiguresOfTheFichas();
  ExpectSomethingDue();
}

/// Every column has a value in some row, but those that the demonstration leaves out.
void DemoTest::ExpectColumnsFilled() const {
  std::set<std::string> found;
  for (const char* table :
       {"zor_PV_Categorias", "zor_PV_Companhias",      "zor_PV_Departamentos", "zor_PV_Marcas",
        "zor_PV_Modelos",    "zor_PV_TiposAcessorios", "zor_PV_TiposManut",    "zor_PV_TiposSeguro",
        "zor_PV_Viagens",    "zor_PV_TiposGastos",     "zor_PV_Viaturas",      "zor_Funcionarios",
        "zor_CartasCond",    "zor_PV_Gastos",          "zor_PV_Seguros",       "zor_PV_Revisoes",
        "zor_PV_Inspecoes",  "zor_PV_Multas",          "zor_PV_Sinistros",     "zor_PV_Acessorios"}) {
    zorCrmParvel::RecordsetRef rows;
    bd->AbrirLeitura("", {"SELECT * FROM ", zorCrmParvel::fixed(table)}, rows);
    std::set<std::string> empty;
    for (const auto& field : rows->FieldList()) empty.insert(field.name);
    for (; !rows->Eof(); rows->MoveNext())
      for (auto field = empty.begin(); field != empty.end();) {
        const platform::Variant value = rows->Fields(*field).Value();
        field = IsNothing(value.IsNull() ? "" : value.ToText()) ? std::next(field) : empty.erase(field);
      }
    for (const std::string& field : empty) found.insert(table + ("." + field));
  }
  EXPECT_EQ(found,
            (std::set<std::string>{
                "zor_Funcionarios.BI", "zor_Funcionarios.DataBI", "zor_Funcionarios.DataPassa",
                "zor_Funcionarios.DataValBI", "zor_Funcionarios.EmissaoBI", "zor_Funcionarios.LocalPassa",
                "zor_Funcionarios.Obs", "zor_Funcionarios.Passaporte", "zor_Funcionarios.ValidadePassa",
                "zor_PV_Acessorios.KmFinal", "zor_PV_Acessorios.Modelo", "zor_PV_Acessorios.Obs",
                "zor_PV_Viaturas.Obs", "zor_PV_Viaturas.QtdInicial"}));
}

void DemoTest::ExpectCodesThatExist() const {
  const struct {
    const char* table;
    const char* column;
    const char* codes;
    const char* key = "Codigo";
  } references[] = {{"zor_PV_Viaturas", "Marca", "zor_PV_Marcas"},
                    {"zor_PV_Viaturas", "Modelo", "zor_PV_Modelos"},
                    {"zor_PV_Viaturas", "Categoria", "zor_PV_Categorias"},
                    {"zor_PV_Viaturas", "Departamento", "zor_PV_Departamentos"},
                    {"zor_PV_Viaturas", "CompLeasing", "zor_PV_Companhias"},
                    {"zor_CartasCond", "Motorista", "zor_Funcionarios"},
                    {"zor_PV_Gastos", "Matricula", "zor_PV_Viaturas", "Matricula"},
                    {"zor_PV_Gastos", "Motorista", "zor_Funcionarios"},
                    {"zor_PV_Gastos", "TipoGasto", "zor_PV_TiposGastos"},
                    {"zor_PV_Gastos", "Viagem", "zor_PV_Viagens"},
                    {"zor_PV_Seguros", "Companhia", "zor_PV_Companhias"},
                    {"zor_PV_Seguros", "TipoSeguro", "zor_PV_TiposSeguro"},
                    {"zor_PV_Revisoes", "TipoManut", "zor_PV_TiposManut"},
                    {"zor_PV_Multas", "Motorista", "zor_Funcionarios"},
                    {"zor_PV_Sinistros", "Motorista", "zor_Funcionarios"},
                    {"zor_PV_Acessorios", "TipoAcessorio", "zor_PV_TiposAcessorios"}};
  for (const auto& r : references) {
    std::set<std::string> codes = {""};
    for (const auto& row : Rows(bd, std::string("SELECT ") + r.key + " FROM " + r.codes))
      codes.insert(row[0]);
    for (const auto& row : Rows(bd, std::string("SELECT ") + r.column + " FROM " + r.table))
      ASSERT_EQ(codes.count(row[0]), 1U) << r.table << '.' << r.column << ' ' << row[0];
  }
}

void DemoTest::ExpectFiguresOfTheFichas() const {
  const auto figures = [&] {
    return Rows(bd,
                "SELECT Matricula, KmActual, Media, CustoMedioKmC FROM zor_PV_Viaturas ORDER BY Matricula");
  };
  const Table before = figures();
  for (const auto& row : before) zorCrmParvel::RecalcularViatura(bd, row[0]);
  EXPECT_EQ(figures(), before);
}

void DemoTest::ExpectSomethingDue() const {
  std::ostringstream out;
  EXPECT_EQ(PrintAlerts(bd, {.json = true}, out, out), kDue);
  const auto alerts = nlohmann::json::parse(out.str());
  EXPECT_EQ(alerts.size(), 6U);
  for (const auto& [family, rows] : alerts.items()) {
    EXPECT_EQ(rows.empty(), family == "inspeccoes") << family;  // those follow from the categories
    EXPECT_LT(rows.size(), 30U) << family;
  }
}

TEST_F(DemoTest, ItGoesIntoAnEmptyDatabaseOnly) {
  for (const char* table :
       {"zor_PV_Categorias", "zor_PV_Companhias", "zor_PV_Departamentos", "zor_PV_Marcas", "zor_PV_Modelos",
        "zor_PV_TiposAcessorios", "zor_PV_TiposGastos", "zor_PV_TiposManut", "zor_PV_TiposSeguro",
        "zor_PV_Viagens", "zor_Funcionarios"}) {
    Sql(std::string("INSERT INTO ") + table + " (Codigo) VALUES ('X')");
    EXPECT_EQ(NumberOf([&] { FillDemo(bd.shared()); }), platform::kKeyInUse) << table;
    Sql(std::string("DELETE FROM ") + table);
  }
}

}  // namespace
}  // namespace console
