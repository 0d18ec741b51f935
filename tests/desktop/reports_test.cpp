#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QTreeWidget>

#include "desktop/print/report_dialog.h"
#include "desktop/reports/chart_panel.h"
#include "desktop/reports/evolution_dialog.h"
#include "desktop/reports/filter_dialog.h"
#include "desktop/reports/month_panel.h"
#include "desktop/reports/report_bar.h"
#include "desktop/reports/report_page.h"
#include "desktop/reports/report_window.h"
#include "desktop/reports/settings_dialog.h"
#include "desktop/start/start_page.h"
#include "masterdata/code_table.h"
#include "open_window.h"
#include "pdf.h"
#include "platform/host.h"
#include "support/fleet.h"

namespace desktop_test {
namespace {

using desktop::ReportPage;

class ReportsTest : public OpenWindow {
 protected:
  ReportsTest() {
    const zorCrmParvel::DataAccessRef store(window.workspace()->store());
    testing_support::AddExpenseTypes(store);
    testing_support::AddDriver(store, "1", "Ana");
    testing_support::AddCode<zorCrmParvel::clDepartamentos>(store, "D", "Distribuição");
    for (const char* plate : {"AA", "BB"}) testing_support::AddVehicle(store, plate);
    store->ExecutarSql("", "UPDATE zor_PV_Viaturas SET Departamento=N'D' WHERE Matricula=N'AA'");
    for (const auto& [plate, litres, km] :
         {std::tuple("AA", "30", 1000), {"AA", "40", 1500}, {"BB", "20", 900}})
      testing_support::AddExpense(store, plate, platform::Today(), "GASOLEO", litres, "60", km);
  }

  static void Wait(ReportPage& page) {
    const void* before = page.result().get();  // still held when the next one is made
    EXPECT_TRUE(QTest::qWaitFor([&] { return page.result() != nullptr && page.result().get() != before; }));
  }
  ReportPage& Open(const char* key) {
    window.ShowList(key);
    auto& page = *qobject_cast<ReportPage*>(window.shown());
    Wait(page);
    return page;
  }
  static QString Cell(const ReportPage& page, int row, const char* heading) {
    const auto* model = page.table().model();
    for (int i = 0; i < model->columnCount(); ++i)
      if (model->headerData(i, Qt::Horizontal).toString() == heading)
        return model->index(row, i).data().toString();
    return "?";
  }
};

TEST_F(ReportsTest, ARowShowsItsChartAndOpensWhatItIsMadeOfDownToTheFicha) {
  ReportPage& page = Open("RelConsumos");
  ASSERT_EQ(page.CountText(), "2 linhas");
  EXPECT_EQ(Cell(page, 0, "Aos 100 km"), "8,00");
  EXPECT_EQ(Cell(page, 1, "Aos 100 km"), "só um abastecimento");
  EXPECT_TRUE(page.TotalsText().startsWith("GASOLEO: 90 L"));
  page.table().SetCurrentRow(0);
  EXPECT_EQ(page.chart().shown().titulo, "Consumo de GASOLEO, AA");
  page.chart().CopyPicture();
  EXPECT_FALSE(QGuiApplication::clipboard()->pixmap().isNull());
  QString ficha;
  desk.script.Next([&](QWidget& closer) {
    auto& movements = dynamic_cast<desktop::ReportWindow&>(closer).page();
    EXPECT_TRUE(QTest::qWaitFor([&] { return movements.result() != nullptr; }));
    EXPECT_EQ(movements.CountText(), "2 linhas");
    desk.script.Next([&](QWidget& opened) { ficha = opened.windowTitle(); });
    movements.table().SetCurrentRow(1);
    movements.OpenRow();
  });
  page.OpenRow();
  EXPECT_TRUE(ficha.contains("Gastos")) << ficha.toStdString();
}

TEST_F(ReportsTest, FiltersNarrowAndStandOnPaper) {
  ReportPage& page = Open("RelCustos");
  EXPECT_EQ(page.CountText(), "2 linhas");
  desk.script.Next([](QWidget& shown) {
    auto& dialog = dynamic_cast<desktop::FilterDialog&>(shown);
    QTreeWidgetItem* departments = dialog.tree().topLevelItem(1);
    EXPECT_EQ(departments->text(0), "Departamentos");
    departments->child(0)->setCheckState(0, Qt::Checked);
    dialog.accept();
  });
  Q_EMIT page.bar().FiltersWanted();
  Wait(page);
  EXPECT_EQ(page.CountText(), "1 linha");
  desk.script.Next([&](QWidget& preview) {
    const QString file = desk.folder.filePath("custos.pdf");
    EXPECT_TRUE(dynamic_cast<desktop::ReportDialog&>(preview).WritePdf(file));
    const QString text = PdfText(file);
    for (const char* part : {"Custos", "De 01-01-", "Departamentos: D", "Total: 120,00", "AA"})
      EXPECT_TRUE(text.contains(part)) << part;
  });
  page.Print();
}

TEST_F(ReportsTest, AFindingIsTakenOffTheListAndPutBack) {
  ReportPage& page = Open("RelExcepcoes");
  const long all = page.table().grid().source().Rows();
  ASSERT_GT(all, 0);  // two fills on a day
  page.table().SetCurrentRow(0);
  desk.script.Next([](QWidget& box) {
    box.findChild<QLineEdit*>()->setText("combinado");
    dynamic_cast<QDialog&>(box).accept();
  });
  page.SwitchSeen();
  Wait(page);
  EXPECT_EQ(page.table().grid().source().Rows(), all - 1);
  page.bar().ShowSeen(true);
  Wait(page);
  EXPECT_EQ(page.table().grid().source().Rows(), all);
  EXPECT_EQ(Cell(page, 0, "Nota"), "combinado");
  page.table().SetCurrentRow(0);
  page.SwitchSeen();
  Wait(page);
  EXPECT_EQ(Cell(page, 0, "Nota"), "");
}

TEST_F(ReportsTest, RulesAreEditedInTheirTable) {
  desktop::SettingsDialog dialog(bd(), &window);
  dialog.Choose("regras");
  dialog.table().SetCurrentRow(5);
  dynamic_cast<QCheckBox*>(dialog.Field("Activa"))->setChecked(false);
  dynamic_cast<QLineEdit*>(dialog.Field("Limiar"))->setText("muito");
  desk.script.Answer("OK");
  dialog.Save();
  EXPECT_TRUE(desk.script.boxes.join(QChar()).contains("escreva um número"));
  dynamic_cast<QLineEdit*>(dialog.Field("Limiar"))->setText("20");
  dialog.Save();
  const auto& source = dialog.table().grid().source();
  EXPECT_EQ(source.Text(5, 0), "preco");
  EXPECT_EQ(source.Text(5, 2), "");
  EXPECT_EQ(source.Text(5, 3), "20");
}

TEST_F(ReportsTest, AVehicleOfAListShowsItsEvolutionAndTheStartPageTheMonth) {
  window.ShowList("Viaturas");
  window.page()->table().SetCurrentRow(0);
  std::size_t drawn = 0;
  desk.script.Next([&](QWidget& shown) {
    auto& dialog = dynamic_cast<desktop::EvolutionDialog&>(shown);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.charts().front()->shown().titulo.empty(); }));
    for (const desktop::ChartPanel* chart : dialog.charts()) drawn += chart->shown().titulo.empty() ? 0 : 1;
  });
  for (QAction* action : window.page()->own_commands())
    if (action->text() == "E&volução…") action->trigger();
  EXPECT_EQ(drawn, 4u);
  window.ShowList("Inicio");
  const auto& month = window.start().month();
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return month.Lines().value(0).startsWith("Custo: 180,00 €; mês anterior"); }));
}

TEST(MonthPanelTest, WhatAMonthIsMeasuredByStandsBelowWhereThereIsNoRoomBeside) {
  QWidget page;
  desktop::MonthPanel panel(&page);
  const reports::ResumoDoMes month{
      .mes = "Novembro de 2026",
      .figuras = {{"Custo", "58.113,91 €", "mês anterior 58.970,72 € (-1 %)", "há um ano 64.085,69 € (-9 %)"},
                  {"Gasóleo", "23.803 L", "mês anterior 24.477 L (-3 %)", "há um ano 25.447 L (-6 %)"}},
      .leasing = {}};
  panel.Show(month);
  const auto laid_out = [&](int width) {
    panel.resize(width, 200);
    page.grab();
    QPoint end;
    QSet<int> lines;
    for (const QLabel* label : panel.findChildren<QLabel*>()) {
      end.setX(std::max(end.x(), label->x() + label->sizeHint().width()));
      lines.insert(label->y());
    }
    end.setY(static_cast<int>(lines.size()));
    return end;
  };
  const QPoint beside = laid_out(2000);
  const QPoint below = laid_out(beside.x() - 20);
  EXPECT_EQ(beside.y(), 3);
  EXPECT_EQ(below.y(), 5);
  EXPECT_LT(below.x(), beside.x() - 20);
  EXPECT_LT(panel.minimumSizeHint().width(), beside.x() - 20);
  page.show();
  const int least = panel.minimumSizeHint().width();
  panel.Show(month);
  EXPECT_EQ(panel.minimumSizeHint().width(), least) << "also when it is seen already";
}

}  // namespace
}  // namespace desktop_test
