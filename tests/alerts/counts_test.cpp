#include <memory>
#include <vector>

#include "alerts/alert_list.h"
#include "alerts/alerts_fixture.h"
#include "host/sistema.h"
#include "support/grid_window.h"

namespace zorCrmParvel {
namespace {

constexpr const char* kKeys[] = {"AlertasAp",    "AlertasRev", "AlertasInsp",
                                 "AlertasAcess", "AlertasMot", "AlertasViat"};

class AlertCountsTest : public AlertsFixture {
 protected:
  AlertCountsTest() { sistema.ICrmSistema_ZorDataAccess = bd; }

  /// A vehicle and a driver of whom everything is due on one day.
  void Everything() {
    Vehicle("A");
    Policy("A");
    Accessory("A");
    Sql("UPDATE zor_PV_Viaturas SET SeloPago=0, Tacografo=1, DataPrxRev=" + Day() + ", DataSelo=" + Day() +
        ", DtDescarga=" + Day());
    Driver("1");
    Sql("UPDATE zor_Funcionarios SET ValidadePassa=" + Day() + ", NoCartaoCondutor='C', DtDescarga=" + Day());
  }
  std::unique_ptr<ICrmVwList> List(const char* key) { return sistema.MostraListas(key); }
  ContagemDeAlertas Count(const char* key) { return dynamic_cast<AlertList&>(*List(key)).Contar(); }
  /// The rows of a list by the styles that the grid gives them.
  ContagemDeAlertas CountOnGrid(const char* key) {
    testing_support::GridWindow window;
    const auto list = List(key);
    window.Start(*list);
    ContagemDeAlertas count;
    count.linhas = list->ICrmVwList_NumeroItens();
    for (long row = 0; row < count.linhas; ++row) {
      const platform::GridStyle* style = window.grid.StyleOf(row);
      const std::string name = style == nullptr ? "" : style->name;
      if (name == "PintarG" || name == "PintarGKm") ++count.passadas;
      if (name == "PintarMG" || name == "PintarMGKm") ++count.muitoBreves;
      if (name == "PintarMnG" || name == "PintarMnGKm") ++count.breves;
    }
    return count;
  }

  Sistema sistema;
};

TEST_F(AlertCountsTest, CountsTheRowsAsTheListColoursThem) {
  Everything();
  for (const int days : kEdges)
    for (const char* key : kKeys) {
      SCOPED_TRACE(std::string(key) + " in " + std::to_string(days) + " days");
      DaysToGo(days);
      EXPECT_EQ(Count(key), CountOnGrid(key));
    }
  for (const int km : {9001, 8600, 8400}) {
    Sql("UPDATE zor_PV_Viaturas SET KmActual=" + std::to_string(km));
    EXPECT_EQ(Count("AlertasRev"), CountOnGrid("AlertasRev")) << km;
  }
}

TEST_F(AlertCountsTest, AListSaysWhichBandsItHas) {
  for (const char* key : kKeys) {
    SCOPED_TRACE(key);
    const auto list = List(key);
    const auto& alerts = dynamic_cast<const AlertList&>(*list);
    EXPECT_TRUE(alerts.TemFaixa(Tools::Faixa::kPassada));
    EXPECT_TRUE(alerts.TemFaixa(Tools::Faixa::kBreve));
    EXPECT_EQ(alerts.TemFaixa(Tools::Faixa::kMuitoBreve), std::string(key) != "AlertasViat");
  }
}

}  // namespace
}  // namespace zorCrmParvel
