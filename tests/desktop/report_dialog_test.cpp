#include "desktop/report_dialog.h"

#include <gtest/gtest.h>

#include "desktop/sources.h"
#include "pdf.h"
#include "user.h"

namespace desktop_test {
namespace {

/// Answers any statement with a hundred expenses.
class Expenses : public platform::Connection {
 public:
  platform::RecordsetRef Execute(const std::string&) override {
    auto rows = std::make_shared<platform::MemoryRecordset>();
    rows->Append("Designação", platform::FieldType::kText, 200);
    rows->Append("Custo", platform::FieldType::kCurrency, 8);
    rows->Open();
    for (int i = 0; i < 100; ++i) {
      rows->AddNew();
      rows->Fields("Designação")
          .SetValue(i == 50 ? std::string(150, 'x') + " fim" : "Gasto " + std::to_string(i));
      rows->Fields("Custo").SetValue(platform::Currency::Parse("1234,5"));
      rows->Update();
    }
    return platform::RecordsetRef(std::shared_ptr<platform::Recordset>(rows));
  }
};

platform::MapaListagem ExpenseReport() {
  platform::MapaListagem report;
  report.Ligacao = platform::MakeRef<Expenses>();
  report.Titulo = "Listagem de Gastos";
  report.Carrega();
  report.Coluna(1).Width = 4000;
  report.Coluna(2).Width = 2000;
  return report;
}

TEST(ReportDialogTest, ThePdfHoldsTitleHeadingsRowsAndPageNumbersAsText) {
  Desk desk;
  platform::MapaListagem report = ExpenseReport();
  desktop::DialogSource source(report);
  desktop::ReportDialog dialog(source, "Listagem de Gastos", nullptr);
  const QString file = desk.folder.filePath("mapa.pdf");
  ASSERT_TRUE(dialog.WritePdf(file));

  const QStringList pages = PdfText(file).split('\f', Qt::SkipEmptyParts);
  ASSERT_GE(pages.size(), 2);
  for (qsizetype i = 0; i < pages.size(); ++i) {
    SCOPED_TRACE(i);
    for (const QString& text : {QString("Listagem de Gastos"), QString("Designação"), QString("Custo"),
                                QString("Página %1 de %2").arg(i + 1).arg(pages.size())})
      EXPECT_TRUE(pages[i].contains(text)) << text.toStdString();
  }
  const QString text = pages.join(QChar());
  EXPECT_EQ(text.count("1.234,50"), 100);
  EXPECT_TRUE(text.contains("Gasto 0 "));
  EXPECT_TRUE(text.contains("Gasto 99"));
  EXPECT_TRUE(text.contains("fim")) << "what is wider than its column goes on below, without ligatures";
  const auto now = desk.host.Now();
  EXPECT_TRUE(text.contains(QString("%1-%2-%3")
                                .arg(now.day(), 2, 10, QChar('0'))
                                .arg(now.month(), 2, 10, QChar('0'))
                                .arg(now.year())));
}

TEST(ReportDialogTest, APdfThatCannotBeWrittenIsToldApart) {
  Desk desk;
  platform::MapaListagem report = ExpenseReport();
  desktop::DialogSource source(report);
  EXPECT_FALSE(desktop::ReportDialog(source, "Gastos", nullptr).WritePdf("/nenhures/mapa.pdf"));
}

TEST(ReportDialogTest, TheModulesReportIsShownAndClosed) {
  Desk desk;
  desk.script.Next([](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "Listagem de Gastos");
    ClickButton(window, "Fechar");
  });
  ExpenseReport().Mostra();
}

}  // namespace
}  // namespace desktop_test
