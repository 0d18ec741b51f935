#include <gtest/gtest.h>

#include <map>

#include "demo/demo.h"
#include "reports/definicoes.h"
#include "reports/pages/resultado.h"
#include "support/recording_data_access.h"
#include "support/scripted_host.h"

namespace {

using namespace reports;
using zorCrmParvel::DataAccessRef;

/// A faulty expense on the last day, told by what differs from a usual fill of 40 L at 1.66 €, 500 km on.
struct Fault {
  const char* rule;
  int km = 500;  // from the vehicle's last reading
  const char* qtd = "40";
  const char* price = "1.66";
  const char* cost = nullptr;  // that of quantity and price
  const char* type = "GASOLEO";
  const char* hour = "12:00:00";
  int times = 1;
  const char* plate = nullptr;  // one of its own
  const char* driver = "";
};

const Fault kFaults[] = {
    {.rule = "consumo", .km = 60},
    {.rule = "deposito", .km = 5000, .qtd = "900"},
    {.rule = "mesmo_dia", .times = 2},
    {.rule = "km_recua", .km = -300},
    {.rule = "km_por_dia", .km = 90000},
    {.rule = "preco", .price = "2.9"},
    {.rule = "inactiva"},
    {.rule = "fim_de_semana"},
    {.rule = "noite", .hour = "23:10:00"},
    {.rule = "combustivel", .type = "GASOLINA"},
    {.rule = "repetido", .times = 2},
    {.rule = "carta", .driver = "CADUCADO"},
    {.rule = "sem_viatura", .plate = "XX-99-XX"},
    {.rule = "sem_motorista", .driver = "NINGUEM"},
};

class Seeded : public testing::Test {
 protected:
  Seeded() {
    host.clock = platform::Date::FromParts(2026, 11, 21, 9, 0, 0);  // a Saturday
    const auto store = testing_support::MemoryDatabase();
    demo::FillDemo(store);
    bd = store;
  }

  std::vector<LinhaDaTabela> Findings() {
    Pedido request;
    request.periodo = {platform::Date::FromParts(2020, 1, 1).days(), host.clock.days()};
    return Calcular(bd, TipoDeRelatorio::kExcepcoes, request).relatorio.tabelas.front().linhas;
  }

  void Run(const std::string& statement) { bd->ExecutarSql("", zorCrmParvel::Statement(statement.c_str())); }

  std::string Value(const std::string& statement) { return testing_support::Rows(bd, statement).at(0).at(0); }

  /// Writes a fault on a vehicle; its note names it.
  void Plant(const Fault& fault, const std::string& plate) {
    const std::string last = Value("SELECT Km FROM zor_PV_Gastos WHERE Matricula=N'" + plate +
                                   "' AND Km>0 ORDER BY Data DESC, Gst_Id DESC");
    const int km = static_cast<int>(std::stod(last)) + fault.km;
    const double cost = std::stod(fault.qtd) * std::stod(fault.price);
    for (int i = 0; i < fault.times; ++i)
      Run("INSERT INTO zor_PV_Gastos (Matricula, Data, TipoGasto, Qtd, ValorUn, Custo, Km, Motorista, Obs) "
          "VALUES (N'" +
          std::string(fault.plate != nullptr ? fault.plate : plate) + "', '2026.11.21 " + fault.hour +
          "', N'" + fault.type + "', " + fault.qtd + ", " + fault.price + ", " + std::to_string(cost) + ", " +
          std::to_string(km) + ", N'" + fault.driver + "', N'" + fault.rule + "')");
  }

  testing_support::ScriptedHost host;
  DataAccessRef bd;
};

TEST_F(Seeded, EveryFaultIsFoundAndDemoDataHasFewFindingsOfItsOwn) {
  std::size_t events = 0;
  for (const char* table :
       {"Gastos", "Revisoes", "Inspecoes", "Acessorios", "Multas", "Sinistros", "Seguros"})
    events += testing_support::Rows(bd, std::string("SELECT Matricula FROM zor_PV_") + table).size();
  const std::size_t before = Findings().size();
  EXPECT_GT(before, 0u);  // there is something to look at
  EXPECT_LT(before * 50, events);

  Run("INSERT INTO zor_Funcionarios (Codigo, ValCartaCond) VALUES (N'CADUCADO', '2025.01.31')");
  for (const char* rule : {"fim_de_semana", "noite"})
    Gravar(bd, *DefinicaoDe("regras"), {rule}, {{"Activa", "1"}});
  const auto plates = testing_support::Rows(
      bd,
      "SELECT Matricula FROM zor_PV_Viaturas WHERE Combustivel=0 AND Categoria LIKE 'LIG%' "
      "ORDER BY Matricula");
  std::size_t vehicle = 0;
  for (const Fault& fault : kFaults) {
    const std::string plate = plates.at(vehicle++).at(0);
    Plant(fault, plate);
    if (std::string(fault.rule) == "inactiva")
      Gravar(bd, *DefinicaoDe("viaturas"), {plate}, {{"ForaDeServico", "01-11-2026"}});
  }
  std::map<std::pair<std::string, std::string>, int> found;  // by rule and id
  for (const LinhaDaTabela& row : Findings())
    ++found[{std::get<std::string>(row.celulas[0]), std::to_string(std::get<std::int64_t>(row.celulas[4]))}];
  for (const Fault& fault : kFaults) {
    const std::string id = Value("SELECT Gst_Id FROM zor_PV_Gastos WHERE Obs=N'" + std::string(fault.rule) +
                                 "' ORDER BY Gst_Id DESC");
    EXPECT_EQ((found[{fault.rule, id}]), 1) << fault.rule;
  }
}

TEST_F(Seeded, DemoDataShowEveryReportWithSomething) {
  for (const TextosDoRelatorio& report : Relatorios()) {
    SCOPED_TRACE(report.chave);
    Pedido request;
    request.periodo = Periodo::Ano(2026);
    const Resultado result = Calcular(bd, report.tipo, request);
    EXPECT_GT(result.relatorio.tabelas.front().Quantas(), 0u);
    const LinhaDaTabela first = result.relatorio.tabelas.front().Linha(0);
    EXPECT_FALSE(GraficoDa(result, 0, &first).Vazio());
    EXPECT_FALSE(GraficoDa(result, 0, nullptr).Vazio());
    EXPECT_EQ(DentroDa(result, 0, first).has_value(), !first.alvo.especie);
    EXPECT_EQ(result.relatorio.notas.size(), 1u);  // the period alone: no type lacks its factor
    const Tabela& last = result.relatorio.tabelas.back();
    if (last.nome == "leasing") {
      EXPECT_GT(last.Quantas(), 3u);
    }
  }
}

}  // namespace
