#include "lists/host_columns.h"

#include <gtest/gtest.h>

#include <tuple>

#include "embedded/database.h"
#include "lists/views.h"
#include "support/errors.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"
#include "support/sample_fleet.h"
#include "support/scripted_host.h"
#include "support/whole_text.h"

namespace {

using namespace testing_support;
using lists::HostCells;
using platform::Date;

TEST(HostColumnsTest, RowsInViewAreReadByOneStatement) {
  ScriptedHost host;
  const zorCrmParvel::DataAccessRef bd(embedded::Database::Open(":memory:"));
  AddFleet(bd, 1000);
  for (int i = 1; i <= 3; ++i)
    AddExpense(bd, "12-AB-34", Date::FromParts(2026, 11, i), "GASOLEO", "40", "66,36", 1000 + 100 * i);
  HostCells cells(*lists::HostTableOf("Gastos"), bd, [](long row) { return std::to_string(row + 1); });
  cells.Reset(4);  // the fourth is of nobody
  cells.Prepare({0, 2, 3});
  EXPECT_EQ(cells.Shown(0, 0), "40,00");
  EXPECT_EQ(cells.Shown(2, 2), "66,36");
  EXPECT_EQ(cells.Shown(2, 3), "1.300");
  EXPECT_EQ(cells.Shown(0, 4), "Ana");
  EXPECT_EQ(cells.Shown(3, 0), "");
  EXPECT_EQ(cells.statements(), 1);
  EXPECT_EQ(cells.Shown(1, 3), "1.200");
  EXPECT_EQ(cells.statements(), 2);
  cells.Reset(4);
  cells.Prepare({2});
  cells.PrepareAll();
  EXPECT_EQ(cells.Shown(1, 3) + cells.Shown(3, 3), "1.200");
  EXPECT_EQ(cells.statements(), 4);
}

TEST(HostColumnsTest, EveryColumnIsShownAsItIsToBe) {
  ScriptedHost host;
  const zorCrmParvel::DataAccessRef bd(embedded::Database::Open(":memory:"));
  AddSampleFleet(bd);
  // An event is shown also where it names nothing, or nothing that is there.
  for (const char* sql : {"UPDATE zor_PV_Viaturas SET Departamento = NULL WHERE Matricula = 'B'",
                          "UPDATE zor_PV_Gastos SET Motorista = NULL, Matricula = '' WHERE Gst_Id = 4",
                          "UPDATE zor_PV_Seguros SET TipoSeguro = '', Matricula = '' WHERE Seg_Id = 4",
                          "UPDATE zor_PV_Revisoes SET Matricula = '' WHERE Manu_Id = 4",
                          "UPDATE zor_PV_Inspecoes SET Matricula = '' WHERE Insp_Id = 4",
                          "UPDATE zor_PV_Multas SET Matricula = '' WHERE Id = 4",
                          "UPDATE zor_PV_Sinistros SET Matricula = '' WHERE Id = 4",
                          "UPDATE zor_PV_Acessorios SET Matricula = '' WHERE Id = 4"})
    bd->ExecutarSql("", sql);
  std::string text;
  for (const std::string list :
       {"Gastos", "Apolices", "Revisoes", "Inspecoes", "Multas", "Sinistros", "Acessorios", "Viaturas"}) {
    const lists::HostTable& table = *lists::HostTableOf(list);
    const auto key = [&](long row) {
      return table.key_is_text ? std::string(1, "ABCZ"[row]) : std::to_string(row + 1);
    };
    HostCells cells(table, bd, key);
    HostCells brought(table, bd, key);
    brought.Await();
    for (HostCells* each : {&cells, &brought}) each->Reset(4);
    EXPECT_EQ(brought.Shown(0, 0), "");
    EXPECT_FALSE(brought.PrepareMore(10));
    zorCrmParvel::RecordsetRef rows;
    bd->AbrirLeitura("", table.select, rows);
    rows->FetchMore(100);
    brought.Take(rows);
    text += "= " + list + " " + table.key_column + " " + table.key_field + "\n";
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const lists::HostColumn& column = table.columns[i];
      text += std::string(column.key) + " " + column.caption + " " +
              std::to_string(static_cast<int>(column.width)) + " " + column.mask + " " +
              std::to_string(static_cast<int>(column.summed)) + (column.hidden ? " escondida" : "") +
              (cells.KindOf(i) ? " número:" : ":");
      for (long row = 0; row < 4; ++row) {
        text += " «" + cells.Shown(row, i) + "»";
        EXPECT_EQ(brought.Shown(row, i), cells.Shown(row, i)) << list << " " << column.key;
        EXPECT_EQ(cells.Value(row, i).IsNull(), cells.Shown(row, i).empty()) << list << " " << column.key;
      }
      text += "\n";
    }
    EXPECT_EQ(brought.statements(), 0);
  }
  ExpectWholeText(PARVEL_SOURCE_DIR "/tests/lists/host_columns.txt", text);
}

TEST(HostColumnsTest, APlateWithAnApostropheStaysInsideItsLiteral) {
  ScriptedHost host;
  const zorCrmParvel::DataAccessRef bd(embedded::Database::Open(":memory:"));
  HostCells cells(*lists::HostTableOf("Viaturas"), bd, [](long) { return std::string("O\'X"); });
  cells.Reset(1);
  EXPECT_EQ(cells.Shown(0, 0), "");
}

TEST(ViewsTest, AreKeptByOwnerAndReadAsTheyWere) {
  const zorCrmParvel::DataAccessRef bd(embedded::Database::Open(":memory:"));
  lists::ListLook look{.columns = {"Data", "Custo"},
                       .search = "10",
                       .filters = {{"Data", "este mês"}},
                       .sort = "Custo",
                       .descending = true,
                       .group = "Departamento"};
  lists::KeepView(bd, {.name = "Gastos d\'hoje", .list = "Gastos", .owner = "", .look = look});
  lists::KeepView(bd, {.name = "Minha", .list = "Gastos", .owner = "ana", .look = {}});
  // Others that share the list, the owner or the name stay when one goes.
  for (const auto& [name, list, owner] :
       {std::tuple{"Dele", "Gastos", "rui"}, {"Outra", "Gastos", ""}, {"Gastos d\'hoje", "Multas", ""}})
    lists::KeepView(bd, {.name = name, .list = list, .owner = owner, .look = {}});
  EXPECT_EQ(lists::ViewsOf(bd, "ana").at(0).look, look);
  look.descending = false;
  lists::KeepView(bd, {.name = "Gastos d\'hoje", .list = "Gastos", .owner = "", .look = look});
  const auto views = lists::ViewsOf(bd, "ana");
  ASSERT_EQ(views.size(), 4U);
  EXPECT_EQ(views[0].name, "Gastos d\'hoje");
  EXPECT_EQ(views[0].look, look);
  lists::RemoveView(bd, views[0]);
  EXPECT_EQ(lists::ViewsOf(bd, "ana").size(), 3U);
  EXPECT_EQ(lists::ViewsOf(bd, "rui").size(), 3U);
  lists::KeepView(bd, {.name = " Minha ", .list = "Gastos", .owner = "ana", .look = {}});
  EXPECT_EQ(lists::ViewsOf(bd, "ana").size(), 3U) << "a name is what stands between its blanks";
  EXPECT_THROW(lists::KeepView(bd, {.name = "  ", .list = "Gastos", .owner = "", .look = {}}),
               platform::RuntimeError);
  EXPECT_THROW(lists::KeepView(bd, {.name = std::string(61, 'v'), .list = "Gastos", .owner = "", .look = {}}),
               platform::RuntimeError);
  EXPECT_TRUE(lists::ViewsOf(BareDatabase(), "ana").empty());
  for (const char* text :
       {"nada disto", "[]", "{}", R"({"ordem": 3, "colunas": [1], "filtros": {"Data": 2}})"})
    EXPECT_EQ(lists::LookOf(text), lists::ListLook()) << text;
  EXPECT_EQ(lists::LookText({}), "{}");
  EXPECT_EQ(lists::LookText(look),
            R"({"colunas":["Data","Custo"],"filtros":{"Data":"este mês"},"grupo":"Departamento",)"
            R"("ordem":"Custo","procura":"10"})");
}

}  // namespace
