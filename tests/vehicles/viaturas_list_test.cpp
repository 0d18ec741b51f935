#include "vehicles/viaturas_list.h"

#include "host/sistema.h"
#include "support/database_test.h"
#include "support/grid_window.h"
#include "vehicles/viaturas_form.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

class ViaturasListTest : public DatabaseTest {
 protected:
  ViaturasListTest() {
    for (const char* plate : {"B", "A"}) AddVehicle(bd, plate);
    list.mybd = bd;
    window.Start(list);
  }
  Sistema sistema;
  GridWindow window;
  VwLstViaturas list;
};

TEST_F(ViaturasListTest, RemovesWithoutAQuestionUnlessThereAreEvents) {
  GridRow row = window.grid.RowAt(0);
  list.ICrmVwList_Remover(&row);
  EXPECT_EQ(window.Rows(), "B|Renault||||");

  AddEvents(bd, "B");
  const char* const kinds[] = {"Acessórios", "Apólices", "Sinistros", "Multas",
                               "Revisões",   "Gastos",   "Inspecções"};
  for (std::size_t refused : {0U, 3U, 6U, 7U}) {
    SCOPED_TRACE(refused);
    EXPECT_EQ(Rows(bd, "SELECT Matricula FROM zor_PV_Viaturas").size(), 1U);
    for (std::size_t i = 0; i <= refused && i < std::size(kinds); ++i)
      host.ExpectBox("Existem " + std::string(kinds[i]) + " associados à Viatura!",
                     i == refused ? platform::kCancel : platform::kOk);
    list.ICrmVwList_Remover(&row);
  }
  EXPECT_EQ(list.ICrmVwList_NumeroItens(), 0);
  EXPECT_TRUE(Rows(bd, "SELECT Id FROM zor_PV_Sinistros").empty());
}

}  // namespace
}  // namespace zorCrmParvel
