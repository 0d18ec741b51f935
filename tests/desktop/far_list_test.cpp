#include <QPushButton>

#include "desktop/shell/message_page.h"
#include "open_window.h"
#include "store/forwarding_store.h"
#include "support/temporary_folder.h"

namespace desktop_test {
namespace {

using desktop::MessagePage;

/// A database that a window takes for a server's: it counts what its own thread asks.
class FarStore : public store::ForwardingStore {
 public:
  using ForwardingStore::ForwardingStore;
  std::function<std::shared_ptr<zorCrmParvel::Store>()> Opener() const override {
    return [this, open = ForwardingStore::Opener()] {
      if (cut) throw platform::RuntimeError(platform::kEngineFailure, "", "sem rede");
      return open();
    };
  }
  std::atomic<bool> cut = false;
  int asked = 0;

 protected:
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override {
    ++asked;
    return ForwardingStore::OpenForReading(statement);
  }
};

class FarListTest : public testing::Test {
 protected:
  FarListTest() {
    for (const char* code : {"REN", "VW", "FORD"})
      far_->ExecutarSql(
          "", {"INSERT INTO zor_PV_Marcas (Codigo, Nome) VALUES ('", zorCrmParvel::value(code), "', 'x')"});
  }
  void Open() {
    window.Open(std::make_unique<desktop::Workspace>(far_));
    desk.host.SetMainWindow(&window);
    window.show();
    window.workspace()->reader().Finish();
    far_->asked = 0;
  }
  long Rows() { return window.page()->table().grid().source().Rows(); }
  MessagePage& Message() { return *window.page()->findChild<MessagePage*>(); }

  testing_support::TemporaryFolder folder_;
  std::shared_ptr<FarStore> far_ = std::make_shared<FarStore>(
      std::shared_ptr<zorCrmParvel::Store>(embedded::Database::Open(folder_.File("frota.db"))));
  Desk desk;
  desktop::MainWindow window{desk.settings};
};

TEST_F(FarListTest, RowsComeWithoutTheWindowAskingForThem) {
  Open();
  window.ShowList("Marcas");
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(Message().Headline(), "A ler a lista…");
  window.workspace()->reader().Finish();
  EXPECT_EQ(Rows(), 3);
  EXPECT_EQ(window.page()->CountText(), "3 registos · 1 seleccionado");
  EXPECT_EQ(far_->asked, 0);
  far_->ExecutarSql("", "DELETE FROM zor_PV_Marcas WHERE Codigo='VW'");
  window.page()->Load();
  EXPECT_EQ(Rows(), 3);  // until the new ones are there
  window.workspace()->reader().Finish();
  EXPECT_EQ(Rows(), 2);
}

TEST_F(FarListTest, AListThatIsBeingReadCanBeLeft) {
  Open();
  window.ShowList("Marcas");
  Click(*Message().button());
  QApplication::processEvents();
  EXPECT_EQ(window.page(), nullptr);
  for (const char* key : {"Marcas", "Modelos", "AlertasInsp", "Marcas"}) window.ShowList(key);
  window.workspace()->reader().Finish();
  EXPECT_EQ(Rows(), 3);
}

TEST_F(FarListTest, WhoCantConnectIsToldAndMayTryAgain) {
  far_->cut = true;
  Open();
  window.ShowList("Marcas");
  window.workspace()->reader().Finish();
  EXPECT_EQ(Message().Headline(), "Não foi possível ler a lista.");
  EXPECT_TRUE(Message().Details().contains("sem rede"));
  far_->cut = false;
  Click(*Message().button());
  window.workspace()->reader().Finish();
  EXPECT_EQ(Rows(), 3);
}

}  // namespace
}  // namespace desktop_test
