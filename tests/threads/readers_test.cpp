// Readers beside the thread that works: run under the thread sanitizer by ./dev check.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "desktop/list/list_catalog.h"
#include "desktop/start/alert_reading.h"
#include "due/month.h"
#include "embedded/database.h"
#include "entry/codes.h"
#include "entry/dates.h"
#include "entry/warnings.h"
#include "events/gastos_form.h"
#include "history/keeping_store.h"
#include "history/view/browser.h"
#include "host/sistema.h"
#include "store/near_store.h"
#include "support/fleet.h"
#include "support/scripted_host.h"
#include "support/temporary_folder.h"

namespace schema {
extern const char* const kTables;
}

namespace threads_tests {
namespace {

using zorCrmParvel::DataAccessRef;

class ReadersTest : public testing::Test {
 protected:
  void SetUp() override {
    const DataAccessRef bd(database_);
    zorCrmParvel::Batch batch(*database_);
    for (int i = 10; i < 40; ++i) {
      testing_support::AddVehicle(bd, "AA-" + std::to_string(i) + "-AA");
      testing_support::AddDriver(bd, "M" + std::to_string(i), "Ana");
    }
    bd->ExecutarSql("",
                    "UPDATE zor_PV_Viaturas SET Categoria='LIGM', DataMatricula='2022.03.15', "
                    "AnoMatricula=2022, KmActual=1000, KmPrxRev=9000, Inactiva=0");
    batch.Commit();
  }

  static std::set<std::string> Parts() {
    std::set<std::string> parts = {desktop::kStepsPart, desktop::kFeedPart};
    for (const desktop::ListEntry& entry : desktop::AllLists())
      if (desktop::IsAlertList(entry)) parts.insert(entry.key);
    return parts;
  }
  static long Due(const std::shared_ptr<zorCrmParvel::Store>& store) {
    long rows = 0;
    for (const auto& [key, part] : desktop::ReadAlerts(store, Parts())) {
      EXPECT_FALSE(part.failure) << key;
      rows += part.counts.linhas;
    }
    return rows;
  }

  testing_support::ScriptedHost host_;
  testing_support::TemporaryFolder folder_;
  std::shared_ptr<embedded::Database> database_ = embedded::Database::Open(folder_.File("frota.db"));
};

TEST_F(ReadersTest, AlertsAreFoundBesideWork) {
  const zorCrmParvel::Gastos ficha;
  const entry::CodeField& plates = *entry::CodeFieldOf(&ficha.Campo[0]);
  const platform::Date today = platform::Today();
  const auto kept = std::make_shared<history::KeepingStore>(database_);
  const long due = Due(database_);
  EXPECT_GT(due, 0);
  std::atomic<bool> over = false;
  std::vector<std::thread> readers;
  for (const bool near : {false, true})
    readers.emplace_back([&, near] {
      std::shared_ptr<zorCrmParvel::Store> store = database_->Opener()();
      if (near) store = std::make_shared<store::NearStore>(store, schema::kTables);
      while (!over) {
        EXPECT_EQ(Due(store), due);
        const entry::ExpensePast past(DataAccessRef(store), platform::Today());
        entry::ExpenseDraft draft;
        draft.plate = "AA-10-AA";
        EXPECT_TRUE(past.Warnings(draft).empty());
        EXPECT_EQ(entry::CodesOf(DataAccessRef(store), plates).size(), 30U);
        EXPECT_FALSE(entry::StoredDatesOf(DataAccessRef(store), {true, "M10"}).empty.empty());
        EXPECT_NO_THROW(due::DueBetween(DataAccessRef(store), today, today.AddDays(41)));
        const auto past_acts = history::Beside(store);
        EXPECT_FALSE(history::Browser(history::Beside(store)).DetailOf(1).size() > 200);
        EXPECT_NO_THROW(history::LastToUndo(*past_acts));
      }
    });
  zorCrmParvel::Sistema sistema;
  sistema.ICrmSistema_ZorDataAccess = DataAccessRef(kept);
  zorCrmParvel::clGastos fill;
  fill.bd = sistema.ICrmSistema_ZorDataAccess;
  for (int i = 0; i < 20; ++i) {
    fill.Id = 0;
    fill.Codigo = "AA-10-AA";
    fill.Data = platform::Date::FromParts(2024, 1, 1 + i);
    fill.Custo = i;
    fill.Escrever();
    EXPECT_NE(sistema.MostraListas("Gastos"), nullptr);
    EXPECT_NE(zorCrmParvel::FormCatalog::Shared().Make("Gastos"), nullptr);
  }
  over = true;
  for (std::thread& reader : readers) reader.join();
}

}  // namespace
}  // namespace threads_tests
