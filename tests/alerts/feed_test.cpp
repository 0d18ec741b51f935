#include <vector>

#include "alerts/alerts_fixture.h"
#include "host/sistema.h"

namespace zorCrmParvel {
namespace {

using Families = std::vector<std::string>;

class AlertFeedTest : public AlertsFixture {
 protected:
  AlertFeedTest() {
    sistema.ICrmSistema_ZorDataAccess = bd;
    const auto rows = platform::MakeRef<platform::MemoryRecordset>();
    for (const char* field : {"APLICACAO", "Entidade", "Texto"})
      rows->Append(field, platform::FieldType::kText, 50);
    rows->Open();
    alertas = rows;
  }
  Families Told() {
    Families told;
    for (const auto& row : testing_support::Rows(alertas)) {
      EXPECT_EQ(row[0], "Parvel");
      EXPECT_EQ(row[2], "Verificar alertas");
      told.push_back(row[1]);
    }
    return told;
  }
  /// The families told by one call.
  Families Feed() {
    const std::size_t before = Told().size();
    sistema.ICrmSistema_AlertasAdd(alertas);
    Families told = Told();
    told.erase(told.begin(), told.begin() + static_cast<std::ptrdiff_t>(before));
    return told;
  }

  Sistema sistema;
  RecordsetRef alertas;
};

TEST_F(AlertFeedTest, TellsTheFamiliesInTheirOrder) {
  EXPECT_EQ(Feed(), Families());
  Vehicle("A");
  Policy("A");
  Accessory("A");
  Driver("1");
  Sql("UPDATE zor_Funcionarios SET ValidadePassa=" + Day());
  DaysToGo(1);
  EXPECT_EQ(Feed(), (Families{"Apólices", "Revisões", "Inspecções", "Acessórios", "Motoristas"}));
  EXPECT_EQ(Feed().size(), 5U) << "nothing is remembered";
  Sql("UPDATE zor_PV_Viaturas SET KmActual=21001, KmPrxRev=20000");
  DaysToGo(100);
  EXPECT_EQ(Feed(), Families());
}

TEST_F(AlertFeedTest, ATrueIsCarriedIntoTheFamiliesThatDontAnswer) {
  Vehicle("A");
  Accessory("A");
  Driver("1");
  Sql("UPDATE zor_PV_Viaturas SET KmActual=21001, KmPrxRev=20000, Categoria='OUTRA'");
  Sql("UPDATE zor_Funcionarios SET ValidadePassa=" + Day());
  DaysToGo(100);
  EXPECT_EQ(Feed(), (Families{"Inspecções", "Acessórios"}))
      << "the accessory isn't due; the passport answers";
  Sql("UPDATE zor_Funcionarios SET ValidadePassa=NULL");
  EXPECT_EQ(Feed(), (Families{"Inspecções", "Acessórios", "Motoristas"}));
  Sql("UPDATE zor_PV_Viaturas SET Inactiva=1, KmActual=0");
  EXPECT_EQ(Feed(), (Families{"Revisões", "Inspecções", "Acessórios", "Motoristas"}))
      << "with no vehicle in service the inspections have no answer of their own";
}

TEST_F(AlertFeedTest, AnErrorLeavesTheRowsBeforeIt) {
  Vehicle("A");
  Policy("A");
  DaysToGo(1);
  Sql("UPDATE zor_PV_Viaturas SET Categoria=NULL");
  Sql("UPDATE zor_PV_Seguros SET Matricula='B'");
  EXPECT_EQ(testing_support::NumberOf([&] { Feed(); }), platform::kInvalidUseOfNull);
  EXPECT_EQ(Told(), (Families{"Apólices", "Revisões"}));
}

TEST_F(AlertFeedTest, NeverTellsOfRoadTaxAndDownloads) {
  Vehicle("A");
  Sql("UPDATE zor_PV_Viaturas SET KmActual=21001, KmPrxRev=20000, Tacografo=1, SeloPago=0, DataSelo=" +
      Day() + ", DtDescarga=" + Day() + ", Categoria='LIGP'");
  DaysToGo(-1);
  EXPECT_EQ(Feed(), Families());
}

}  // namespace
}  // namespace zorCrmParvel
