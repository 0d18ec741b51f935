#include <nlohmann/json.hpp>

#include "console/program_fixture.h"
#include "embedded/database.h"
#include "exchange/table/table_reader.h"

namespace console {
namespace {

class ReportCommandTest : public ProgramFixture {
 protected:
  ReportCommandTest() {
    const auto bd = embedded::Database::Open(database);
    for (const char* statement :
         {"INSERT INTO zor_PV_TiposGastos (Codigo, Combustivel) VALUES (N'G', 1)",
          "INSERT INTO zor_PV_Viaturas (Matricula, Departamento) VALUES (N'AA', N'D')",
          "INSERT INTO zor_PV_Gastos (Matricula, Data, TipoGasto, Qtd, Custo, Km) VALUES (N'AA', "
          "'2026.01.05', N'G', "
          "30, 45.5, 1000)",
          "INSERT INTO zor_PV_Gastos (Matricula, Data, TipoGasto, Qtd, Custo, Km) VALUES (N'AA', "
          "'2026.01.05', N'G', "
          "40, 60, 1500)"})
      bd->ExecutarSql("", statement);
  }
  int Report(std::vector<std::string> words) {
    words.insert(words.begin(), "relatorio");
    return OnDatabase(std::move(words));
  }
};

TEST_F(ReportCommandTest, FiguresGoToTheTerminalToJsonAndToASpreadsheet) {
  ASSERT_EQ(Report({"consumos", "--periodo", "2026-01", "--por", "departamento", "--json"}), kDone);
  const auto json = nlohmann::json::parse(out.str());
  EXPECT_EQ(json["linhas"][0]["l100"], 8.0);
  EXPECT_EQ(json["grupos"][0]["grupo"], "D");
  EXPECT_EQ(json["linhas"][0]["motivo"], nullptr);
  const std::string file = File("custos.xlsx");
  ASSERT_EQ(Report({"custos", "--periodo", "2026-T1", "--xlsx", file}), kDone) << err.str();
  EXPECT_EQ(out.str(), "1 linha em " + file + ".\n");
  const auto table = exchange::OpenTable(file);
  exchange::TableRow row;
  ASSERT_TRUE(table->Next(row) && table->Next(row));
  EXPECT_EQ(row.cells.at(0).text, "AA");
  EXPECT_EQ(row.cells.at(2).text, "105.5");
}

}  // namespace
}  // namespace console
