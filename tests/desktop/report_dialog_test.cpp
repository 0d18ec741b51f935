#include "desktop/print/report_dialog.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <fstream>
#include <utility>

#include "desktop/list/csv.h"
#include "desktop/list/sources.h"
#include "desktop/look/text.h"
#include "lists/row_order.h"
#include "masterdata/tipos_gastos.h"
#include "pdf.h"
#include "platform/runtime_error.h"
#include "sheet.h"
#include "support/files.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"
#include "user.h"

namespace desktop_test {
namespace {

/// A hundred expenses.
Sheet Expenses() {
  std::vector<Sheet::Line> lines;
  lines.reserve(100);
  for (int i = 0; i < 100; ++i)
    lines.push_back({{i == 50 ? QString(150, 'x') + " fim" : QString("Gasto %1").arg(i), "1.234,50"}, {}});
  return {{{.key = "Nome", .caption = "Designação", .width = 4000},
           {.key = "Custo", .caption = "Custo", .width = 2000}},
          std::move(lines)};
}

/// Writes a table as a PDF and gives the file.
QString Printed(Desk& desk, const Sheet& sheet) {
  QString file = desk.folder.filePath("folha.pdf");
  EXPECT_TRUE(desktop::ReportDialog(sheet, "Folha", nullptr).WritePdf(file));
  return file;
}

TEST(ReportDialogTest, ThePdfHoldsTitleHeadingsRowsAndPageNumbersAsText) {
  Desk desk;
  const QStringList pages = PdfText(Printed(desk, Expenses())).split('\f', Qt::SkipEmptyParts);
  ASSERT_GE(pages.size(), 2);
  for (qsizetype i = 0; i < pages.size(); ++i) {
    SCOPED_TRACE(i);
    for (const QString& text : {QString("Folha"), QString("Designação"), QString("Custo"),
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

TEST(ReportDialogTest, WhatIsShortStaysInOneLineAndNotesHaveTheRoomThatItLeaves) {
  const QString note = "Revisão dos 90.000 km com mudança de óleo, filtros e pastilhas";
  Desk desk;
  const Sheet sheet({{.key = "Nome", .caption = "Nome", .width = 9000},
                     {.key = "Data", .caption = "Data", .width = 1000},
                     {.key = "Notas", .caption = "Notas", .width = 1500}},
                    std::vector<Sheet::Line>(30, {{"Maria", "24-11-2026 13:45:00", note}, {}}));
  const QString text = PdfText(Printed(desk, sheet));
  EXPECT_EQ(text.count("24-11-2026 13:45:00"), 30);
  EXPECT_EQ(text.count(note), 30);
  EXPECT_TRUE(text.contains("Página 1 de 1"));
}

TEST(ReportDialogTest, HeadingsOfManyLinesStandAboveTheFirstRow) {
  Desk desk;
  std::vector<desktop::TableColumn> columns;
  Sheet::Line line;
  for (int i = 0; i < 24; ++i) {
    columns.push_back({.key = std::to_string(i), .caption = "Vencimentos previsionais"});
    line.cells << "linha";
  }
  double headings = 0;
  double first_row = 1e6;
  for (const PdfWord& word : PdfWords(Printed(desk, Sheet(columns, {line})))) {
    if (word.text.startsWith("linh")) first_row = std::min(first_row, word.top);
    if (word.text.endsWith("s")) headings = std::max(headings, word.bottom);
  }
  EXPECT_GT(headings, 0);
  EXPECT_LE(headings, first_row);
}

TEST(ReportDialogTest, AnAlertsMarkIsSeenOnPaper) {
  const auto red = [](std::optional<int> band) {
    Desk desk;
    const QImage page = PdfPicture(
        Printed(desk, Sheet({{.key = "Matricula", .caption = "Matrícula"}}, {{{"12-AB-34"}, band}})));
    EXPECT_FALSE(page.isNull());
    int count = 0;
    for (int y = 0; y < page.height(); ++y)
      for (int x = 0; x < page.width(); ++x) count += page.pixelColor(x, y) == Qt::red ? 1 : 0;
    return count;
  };
  EXPECT_GT(red(0), 5);
  EXPECT_EQ(red(std::nullopt), 0);
}

/// While it lives, a file may grow to some bytes only: the disk is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : handler_(signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  sighandler_t handler_;
  rlimit before_{};
};

TEST(ReportDialogTest, WhatCannotBeWrittenIsToldAndLeavesTheFileAsItWas) {
  Desk desk;
  const Sheet source = Expenses();
  desktop::ReportDialog dialog(source, "Gastos", nullptr);
  const std::vector<long> rows = lists::RowOrder(source).Rows();
  EXPECT_FALSE(dialog.WritePdf("/nenhures/mapa.pdf"));
  const std::string file = desk.folder.filePath("mapa").toStdString();
  std::ofstream(file) << "antes";
  {
    const FullDisk full(1000);
    EXPECT_FALSE(dialog.WritePdf(desktop::ToQt(file)));
    EXPECT_THROW(desktop::WriteCsv(desktop::ToQt(file), source, rows), platform::RuntimeError);
  }
  EXPECT_EQ(testing_support::Contents(file), "antes");
}

TEST(ReportDialogTest, AnExportedTextIsNoFormulaAndANumberStaysOne) {
  Desk desk;
  const auto bd = testing_support::MemoryDatabase();
  testing_support::AddCode<zorCrmParvel::clTiposGastos>(bd, "1", "=1;\"+1\"");
  testing_support::AddCode<zorCrmParvel::clTiposGastos>(bd, "2", "'@x");
  testing_support::AddCode<zorCrmParvel::clTiposGastos>(bd, "3", "Zé");
  bd->ExecutarSql("", "UPDATE zor_PV_TiposGastos SET CustoUnit=-1234.5");
  platform::MapaListagem report;
  bd->ObterLigacao(report.Ligacao);
  report.Sql = "SELECT Nome, CustoUnit AS Custo FROM zor_PV_TiposGastos ORDER BY Codigo";
  report.Carrega();
  desktop::DialogSource source(report);
  const QString file = desk.folder.filePath("mapa.csv");
  desktop::WriteCsv(file, source, lists::RowOrder(source).Rows());
  EXPECT_EQ(testing_support::Contents(file.toStdString()),
            "\xEF\xBB\xBFNome;Custo\r\n\"'=1;\"\"+1\"\"\";-1.234,50\r\n''@x;-1.234,50\r\nZé;-1.234,50\r\n");
}

TEST(ReportDialogTest, TheModulesReportIsShownAndClosed) {
  Desk desk;
  desk.script.Next([](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "Listagem de Marcas");
    ClickButton(window, "Fechar");
  });
  zorCrmParvel::clMarcas brand;
  brand.bd = testing_support::MemoryDatabase();
  brand.MostraMapa();
}

}  // namespace
}  // namespace desktop_test
