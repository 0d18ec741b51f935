#include "entry/reads_after.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "events/gastos_form.h"
#include "events/upkeep_form.h"
#include "host/sistema.h"
#include "support/database_test.h"
#include "support/recording_data_access.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

class ReadsAfterTest : public DatabaseTest {
 protected:
  ReadsAfterTest() {
    AddFleet(bd, 10000);
    AddEvents(bd, "12-AB-34");
  }

  /// Confirms the first event of a table on its ficha; what is read and not foreseen.
  template <typename Form>
  std::vector<std::string> Surprises(const std::string& table, const char* number) {
    const Table event = Rows(bd, "SELECT TOP 1 " + std::string(number) + ", Matricula FROM " + table);
    const auto recorder = platform::MakeRef<RecordingDataAccess>(bd);
    Form form;
    form.mybd = DataAccessRef(recorder);
    form.Load();
    form.Carrega(std::stoi(event.at(0).at(0)));
    recorder->statements.clear();
    form.UserPresses(form.botoes.btConf);
    std::vector<std::string> surprises = recorder->statements;
    const auto foreseen = entry::ReadsAfterEvent(table, [&](const char*) { return event.at(0).at(1); });
    std::erase_if(surprises, [&](const std::string& each) {
      return std::find(foreseen.begin(), foreseen.end(), each) != foreseen.end();
    });
    return surprises;
  }
  Sistema sistema;
};

TEST_F(ReadsAfterTest, AllReadsOfASaveAreForeseenButOfItsOwnRowAndTheMake) {
  const auto own = [](const std::vector<std::string>& surprises, const std::string& row) {
    EXPECT_FALSE(surprises.empty());
    for (const std::string& each : surprises)
      EXPECT_TRUE(each.find(row) != std::string::npos || each.find("zor_PV_Marcas") != std::string::npos)
          << each;
  };
  own(Surprises<Gastos>("zor_PV_Gastos", "Gst_Id"), "(Gst_Id = N'");
  own(Surprises<Revisoes>("zor_PV_Revisoes", "Manu_Id"), "(Manu_Id = N'");
  own(Surprises<Inspecoes>("zor_PV_Inspecoes", "Insp_Id"), "(Insp_Id = N'");
  own(Surprises<Acessorios>("zor_PV_Acessorios", "Id"), "(Id = N'");
  EXPECT_TRUE(entry::ReadsAfterEvent("zor_PV_Multas", [](const char*) { return "12-AB-34"; }).empty());
}

}  // namespace
}  // namespace zorCrmParvel
