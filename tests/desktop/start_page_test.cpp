#include "desktop/start/start_page.h"
#include "desktop/start/first_steps_page.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>
#include <QTableWidget>

#include "desktop/list/tools/handling_dialog.h"
#include "desktop/shell/main_actions.h"
#include "desktop/start/alert_card.h"
#include "desktop/start/due_notifier.h"
#include "desktop/start/month_page.h"
#include "open_window.h"
#include "platform/format.h"
#include "platform/host.h"
#include "support/fleet.h"

namespace desktop_test {
namespace {

using desktop::AlertCard;
using desktop::MainWindow;
using desktop::Workspace;

class StartPageTest : public OpenWindow {
 protected:
  void Sql(const std::string& statement) { window.workspace()->store()->ExecutarSql("", statement.c_str()); }
  static std::string Day(int days) {
    return "'" + platform::FormatDate(platform::Today().AddDays(days), "yyyy.mm.dd") + "'";
  }
  /// A vehicle of which nothing is due, for feed and lists.
  void Vehicle() {
    testing_support::AddVehicle(bd(), "AA-00-01");
    Sql("UPDATE zor_PV_Viaturas SET Categoria='LIGP', AnoMatricula=2060, DataMatricula='2060.01.01', "
        "KmActual=21001, KmPrxRev=20000, DataPrxRev=NULL, DataSelo=" +
        Day(90) + ", SeloPago=1");
    Sql("UPDATE zor_PV_Viaturas SET KmActual=1000, KmPrxRev=90000");
  }
  void Policy(int days) {
    Sql("INSERT INTO zor_PV_TiposSeguro (Codigo, Nome) VALUES ('DP', 'Danos próprios')");
    Sql("INSERT INTO zor_PV_Seguros (Matricula, TipoSeguro, Apolice, Validade, Inactiva) VALUES "
        "('AA-00-01', 'DP', 'P-1', " +
        Day(days) + ", 0)");
  }
  void Refresh() {
    window.actions().reload->trigger();
    window.alerts().Finish();
  }
  AlertCard& Card(const char* key) {
    for (AlertCard* card : window.start().cards())
      if (qstrcmp(card->entry().key, key) == 0) return *card;
    throw std::out_of_range(key);
  }
  QString Lines(const char* key) { return Card(key).Lines().join(" | "); }
  /// Everything that the window says in its status bar.
  QString Status() {
    QStringList texts;
    for (const QLabel* label : window.statusBar()->findChildren<QLabel*>()) texts << label->text();
    return texts.join(" | ");
  }
  /// What is read out of the sidebar's alert lists.
  QString SidebarAlerts() {
    QStringList texts;
    auto* side = window.findChild<QListWidget*>();
    for (int i = 0; i < side->count(); ++i)
      if (const QString text = side->item(i)->data(Qt::AccessibleTextRole).toString(); !text.isEmpty())
        texts << text;
    return texts.join(" | ");
  }
};

TEST_F(StartPageTest, WhatBecomesDueWhileTheWindowIsOpenIsSaid) {
  QStringList said;
  QObject::connect(&window.due(), &desktop::DueNotifier::BecameDue,
                   [&](const QString& title, const QString& text) { said << title + ": " + text; });
  const auto look = [&] {
    window.due().Look();
    window.workspace()->reader().Finish();
  };
  Vehicle();
  look();
  const QStringList before = said;
  Policy(3);
  look();
  ASSERT_EQ(said.size(), before.size() + 1);
  EXPECT_TRUE(said.back().startsWith("Frota: 1 prazo: Apólice: P-1 AA-00-01")) << said.back().toStdString();
  look();
  EXPECT_EQ(said.size(), before.size() + 1);
}

TEST_F(StartPageTest, AnEmptyDatabaseOffersTheFirstStepsWhichTickThemselves) {
  window.alerts().Finish();
  desktop::FirstStepsPage& steps = window.start().steps();
  ASSERT_TRUE(steps.isVisible());
  EXPECT_TRUE(steps.NextButton()->hasFocus());
  for (bool button : {false, true}) {
    Press(window, Qt::Key_F6);
    EXPECT_EQ(steps.NextButton()->hasFocus(), button);
  }
  Press(window, Qt::Key_Return);
  window.alerts().Finish();
  EXPECT_EQ(steps.Lines().join(" | ").toStdString(),
            "✓ Tabelas de base: feito | 2 Viaturas: por fazer | 3 Motoristas: por fazer | 4 Primeiro "
            "abastecimento: por fazer | 5 O que vence: por fazer");
  QString opened;
  desk.script.Next([&](QWidget& ficha) { opened = ficha.windowTitle(); });
  Click(*steps.NextButton());
  EXPECT_EQ(opened, "Viaturas");
  Vehicle();
  Refresh();
  EXPECT_EQ(steps.NextButton()->text(), "Novo &motorista");
  ClickButton(steps, "Ver os alertas");
  EXPECT_FALSE(steps.isVisible());
  EXPECT_EQ(Lines("AlertasAp"), "Apólices | Nada a tratar.");
  EXPECT_TRUE(Status().contains("0 alertas")) << Status().toStdString();
}

TEST_F(StartPageTest, CardsSidebarAndStatusTellWhatIsDue) {
  Vehicle();
  Policy(5);
  Sql("UPDATE zor_PV_Viaturas SET DataSelo=" + Day(-1) + ", SeloPago=0");
  Refresh();
  EXPECT_EQ(Lines("AlertasAp"),
            "Apólices | 1 | Verificar alertas | Vencidos: 0 | Muito em breve: 1 | Em breve: 0");
  EXPECT_EQ(Lines("AlertasViat"), "Viaturas | 1 | Só na lista | Vencidos: 1 | Em breve: 0");
  EXPECT_EQ(Lines("AlertasRev"), "Revisões | Verificar alertas | A lista está vazia.");
  EXPECT_EQ(SidebarAlerts(), "Apólices, 1 alerta | Viaturas, 1 alerta");
  EXPECT_TRUE(Status().contains("2 alertas")) << Status().toStdString();
}

TEST_F(StartPageTest, EnterOpensTheListAndAClosedFichaCountsAnew) {
  Vehicle();
  Policy(5);
  Refresh();
  Card("AlertasAp").setFocus();
  Press(window, Qt::Key_Return);
  ASSERT_NE(window.page(), nullptr);
  EXPECT_STREQ(window.page()->entry().key, "AlertasAp");
  EXPECT_TRUE(window.page()->table().hasFocus());
  EXPECT_TRUE(window.start().isHidden());
  desk.script.Next([this](QWidget&) { Sql("UPDATE zor_PV_Seguros SET Validade=" + Day(100)); });
  Press(window, Qt::Key_Return);
  EXPECT_TRUE(window.alerts().IsBusy());
  window.alerts().Finish();
  EXPECT_EQ(SidebarAlerts(), "");
  window.ShowList(desktop::kStartPage);
  EXPECT_TRUE(window.start().isVisible());
  EXPECT_EQ(window.page(), nullptr);
  window.alerts().Finish();
  EXPECT_EQ(Lines("AlertasAp"), "Apólices | Nada a tratar.");
}

TEST_F(StartPageTest, WhatIsDealtWithIsCountedApartUntilItIsOpenAgain) {
  Vehicle();
  Policy(5);
  window.ShowList("AlertasAp");
  desk.script.Next([](QWidget& dialog) {
    Type(dialog, "à espera da oficina");
    dynamic_cast<desktop::HandlingDialog&>(dialog).accept();
  });
  window.page()->own_commands()[1]->trigger();
  EXPECT_EQ(window.page()->table().model()->rowCount(), 1) << "the list shows it as ever";
  window.ShowList(desktop::kStartPage);
  window.alerts().Finish();
  EXPECT_TRUE(Lines("AlertasAp").endsWith("Em breve: 0 | Destes, tratados ou adiados: 1"))
      << Lines("AlertasAp").toStdString();
  Sql("UPDATE zor_PV_Seguros SET Validade=" + Day(6));
  Refresh();
  EXPECT_TRUE(Lines("AlertasAp").endsWith("Em breve: 0")) << "by another date it is another alert";
}

TEST_F(StartPageTest, TheCalendarShowsWhatIsDueAndOpensItsFicha) {
  Vehicle();
  Policy(0);
  window.ShowList("Calendario");
  auto& page = dynamic_cast<desktop::MonthPage&>(*window.shown());
  window.alerts().Finish();
  auto& days = *page.findChild<QTableWidget*>();
  auto& due = *page.findChild<QListWidget*>();
  EXPECT_TRUE(days.hasFocus());
  EXPECT_TRUE(days.currentItem()->text().endsWith("hoje\nAA-00-01 · Apólice"));
  EXPECT_EQ(due.item(0)->text(), "AA-00-01 · Apólice");
  Press(window, Qt::Key_Return);
  EXPECT_TRUE(due.hasFocus());
  QString opened;
  desk.script.Next([&](QWidget& ficha) {
    opened = ficha.windowTitle();
    Sql("UPDATE zor_PV_Seguros SET Validade=" + Day(400));
  });
  Press(window, Qt::Key_Return);
  EXPECT_TRUE(opened.contains("AA-00-01")) << opened.toStdString();
  window.alerts().Finish();
  EXPECT_EQ(due.item(0)->text(), "Nada vence neste dia.") << "it is read anew";
  Press(window, Qt::Key_Escape);
  Press(window, Qt::Key_PageDown);
  EXPECT_EQ(page.month().month(), platform::Today().month() % 12 + 1);
}

TEST_F(StartPageTest, WhatCannotBeReadSaysWhyAndTheRestIsCounted) {
  Vehicle();
  Policy(5);
  testing_support::AddDriver(bd(), "1", "Ana");
  Sql("INSERT INTO zor_CartasCond (Motorista, TipoCarta, DataValidade) VALUES ('1', 10, " + Day(1) + ")");
  Sql("UPDATE zor_PV_Viaturas SET Categoria=NULL");
  Refresh();
  EXPECT_TRUE(Lines("AlertasMot").contains("Não foi possível ler a lista."))
      << Lines("AlertasMot").toStdString();
  EXPECT_TRUE(Card("AlertasMot").toolTip().contains("Alertas - Motoristas")) << "the source";
  EXPECT_TRUE(Lines("AlertasInsp").contains("Não foi possível ler a lista."));
  EXPECT_TRUE(Lines("AlertasAp").contains("Muito em breve: 1"));
  EXPECT_TRUE(window.start().NoticeText().contains("Não foi possível ler todos os avisos."));
  EXPECT_TRUE(Status().contains("Alertas por ler")) << Status().toStdString();
  Sql("UPDATE zor_PV_Viaturas SET Categoria='LIGP'");
  Sql("DELETE FROM zor_CartasCond");
  Refresh();
  EXPECT_EQ(window.start().NoticeText(), "");
  EXPECT_FALSE(Lines("AlertasMot").contains("Não foi"));
}

TEST_F(StartPageTest, ItIsRememberedLikeAList) {
  window.ShowList("Marcas");
  {
    MainWindow again(desk.settings);
    again.Open(std::make_unique<Workspace>(":memory:"));
    EXPECT_TRUE(again.start().isHidden());
    Q_EMIT again.findChild<QListWidget*>()->itemClicked(again.findChild<QListWidget*>()->item(0));
    EXPECT_FALSE(again.start().isHidden());
  }
  MainWindow again(desk.settings);
  again.Open(std::make_unique<Workspace>(":memory:"));
  EXPECT_FALSE(again.start().isHidden());
  EXPECT_EQ(again.page(), nullptr);
}

}  // namespace
}  // namespace desktop_test
