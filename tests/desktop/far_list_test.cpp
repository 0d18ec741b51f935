#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QThreadPool>
#include <algorithm>
#include <thread>

#include "desktop/ficha/picture_view.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_page.h"
#include "open_window.h"
#include "store/forwarding_store.h"
#include "support/fleet.h"
#include "support/temporary_folder.h"
#include "vehicles/viaturas.h"

namespace desktop_test {
namespace {

using desktop::MessagePage;
using desktop::ToQt;

/// A connection whose answers can be held back.
class HeldStore : public store::ForwardingStore {
 public:
  HeldStore(std::shared_ptr<zorCrmParvel::Store> inner, const std::atomic<bool>& hold)
      : ForwardingStore(std::move(inner)), hold_(hold) {}

 protected:
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override {
    while (hold_) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return ForwardingStore::OpenForReading(statement);
  }

 private:
  const std::atomic<bool>& hold_;
};

/// A database that a window takes for a server's: it counts what its own thread asks.
class FarStore : public store::ForwardingStore {
 public:
  using ForwardingStore::ForwardingStore;
  std::function<std::shared_ptr<zorCrmParvel::Store>()> Opener() const override {
    return [this, open = ForwardingStore::Opener()] {
      if (cut) throw platform::RuntimeError(platform::kEngineFailure, "", "sem rede");
      return std::make_shared<HeldStore>(open(), hold);
    };
  }
  std::atomic<bool> hold = false;
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
  ~FarListTest() override { far_->hold = false; }
  void Open() {
    window.Open(std::make_unique<desktop::Workspace>(far_));
    desk.host.SetMainWindow(&window);
    window.show();
    window.workspace()->reader().Finish();
    far_->asked = 0;
  }
  zorCrmParvel::DataAccessRef Bd() { return std::shared_ptr<zorCrmParvel::DataAccess>(far_); }
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

TEST_F(FarListTest, TheWindowsOwnColumnsComeAfterTheRows) {
  testing_support::AddVehicle(Bd(), "AA-10-AA", 1234);
  Open();
  window.ShowList("Viaturas");
  window.workspace()->reader().Finish();
  const auto& source = window.page()->table().grid().source();
  EXPECT_EQ(source.Text(0, *source.FindColumn("KmActual")), "1.234");
  EXPECT_EQ(far_->asked, 0);
}

TEST_F(FarListTest, AfterAFichaTheRowsThatWereThereStayUntilTheNewOnesCome) {
  Open();
  window.ShowList("Marcas");
  window.workspace()->reader().Finish();
  desk.script.Next([&](QWidget& ficha) {
    Type(ficha, "AUDI");
    Press(ficha, Qt::Key_Return);
    Type(ficha, "Audi");
    ClickButton(ficha, "Confirmar");
    far_->hold = true;
    ClickButton(ficha, "Sair");
  });
  window.page()->New();
  EXPECT_EQ(Rows(), 3);
  far_->hold = false;
  window.workspace()->reader().Finish();
  EXPECT_EQ(Rows(), 4);
  EXPECT_EQ(window.page()->table().CurrentRow(), 0) << "the new one is chosen";
}

TEST_F(FarListTest, WhatIsTypedInALookupHoldsForTheRowsThatComeLater) {
  Open();
  window.ShowList("Marcas");
  window.workspace()->reader().Finish();
  QStringList texts;
  desk.script.Next([&](QWidget& ficha) {
    far_->hold = true;
    Press(ficha, Qt::Key_F3);
    for (const auto* field : ficha.findChildren<QLineEdit*>()) texts << field->text();
  });
  desk.script.Next([&](QWidget& lookup) {
    const auto labels = lookup.findChildren<QLabel*>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(),
                            [](const QLabel* label) { return label->text() == "A ler a lista…"; }));
    Type(lookup, "v");
    Press(lookup, Qt::Key_Down);
    Press(lookup, Qt::Key_Return);
    EXPECT_TRUE(lookup.isVisible());
    far_->hold = false;
    window.workspace()->reader().Finish();
    EXPECT_FALSE(lookup.isVisible());
  });
  window.page()->New();
  EXPECT_TRUE(texts.contains("VW")) << texts.join('|').toStdString();
}

TEST_F(FarListTest, APrintedListThatIsReadLongCanBeLeftAndAShortOneIsNotSpokenOf) {
  Open();
  window.ShowList("Marcas");
  window.workspace()->reader().Finish();
  desk.script.Next([this](QWidget& ficha) {
    far_->hold = true;
    desk.script.Answer("Deixar");
    Press(ficha, Qt::Key_F7);
    EXPECT_EQ(desk.script.boxes.join("|"), "A ler o mapa «Listagem de Marcas»…");
    far_->hold = false;
    QString report;
    desk.script.Next([&](QWidget& shown) { report = shown.objectName(); });
    Press(ficha, Qt::Key_F7);
    EXPECT_EQ(report, "imprimir");
  });
  window.page()->New();
}

TEST_F(FarListTest, APhotoIsBroughtToItsFicha) {
  testing_support::AddVehicle(Bd(), "AA-10-AA");
  QImage image(8, 6, QImage::Format_RGB32);
  image.fill(Qt::red);
  ASSERT_TRUE(image.save(ToQt(folder_.File("foto.png"))));
  zorCrmParvel::clViaturas vehicle;
  vehicle.bd = Bd();
  vehicle.Matricula = "AA-10-AA";
  vehicle.Foto_Add(folder_.File("foto.png"));
  Open();
  window.ShowList("Viaturas");
  window.workspace()->reader().Finish();
  desk.script.Next([&](QWidget& ficha) {
    const auto& frame = *ficha.findChild<desktop::PictureFrame*>();
    EXPECT_TRUE(frame.picture().isNull());
    window.workspace()->reader().Finish();
    QThreadPool::globalInstance()->waitForDone();
    QApplication::processEvents();
    EXPECT_EQ(frame.picture().size(), QSize(8, 6)) << frame.text().toStdString();
  });
  window.page()->Edit();
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
