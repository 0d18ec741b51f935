#include "desktop/exchange/import_dialog.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <fstream>

#include "desktop/exchange/import_preview_page.h"
#include "desktop/exchange/plan_model.h"
#include "desktop/shell/main_actions.h"
#include "masterdata/code_table.h"
#include "masterdata/tipos_gastos.h"
#include "open_window.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"

namespace desktop_test {
namespace {

/// A statement of a fuel company on a fleet of one vehicle.
class ImportDialogTest : public OpenWindow {
 protected:
  ImportDialogTest() {
    testing_support::AddVehicle(bd(), "10-GJ-10", 1000);
    zorCrmParvel::clTiposGastos type;
    type.bd = bd();
    type.Codigo = "GASOLEO";
    type.Descrição = "Gasóleo";
    type.Combustivel = 1;
    type.Escrever();
    std::ofstream(file.toStdString())
        << "Extracto\n\nCartão;Matrícula;Data;Hora;Produto;Quantidade;Valor c/ IVA;Odómetro\n"
           "7;10GJ10;13/11/2026;08:15;Diesel Plus;45,20;75,94;1500\n"
           "7;10GJ10;14/11/2026;08:15;Lavagem;1,00;8,00;0\n"
           "8;ZZ-99-ZZ;15/11/2026;10:00;Diesel Plus;10,00;17,00;9000\n"
           "Total;;;;;56,20;100,94;\n";
  }
  static QString Text(QWidget& dialog, const char* part) {
    for (const QLabel* label : dialog.findChildren<QLabel*>())
      if (label->text().contains(part)) return label->text();
    return {};
  }
  static QString Cell(QWidget& dialog, int row, int column) {
    const auto* model = dialog.findChild<desktop::PlanModel*>();
    return model->index(row, column).data().toString();
  }
  testing_support::Table Expenses() {
    return testing_support::Rows(bd(), "SELECT TipoGasto, Custo, Km FROM zor_PV_Gastos ORDER BY Data");
  }

  const QString file = desk.folder.filePath("extracto.csv");
};

TEST_F(ImportDialogTest, AFileIsMappedCorrectedStoredTakenBackAndKnownTheNextTime) {
  desk.script.Next([this](QWidget& opened) {
    auto& dialog = dynamic_cast<desktop::ImportDialog&>(opened);
    dialog.OpenFile(file);
    ClickButton(dialog, "Continuar >");
    const auto choosers = dialog.findChildren<QComboBox*>();
    QStringList chosen;
    for (const QComboBox* chooser : choosers)
      if (qobject_cast<QTableWidget*>(chooser->parentWidget()->parentWidget()) != nullptr)
        chosen << chooser->currentText();
    EXPECT_EQ(chosen.join(" | ").toStdString(),
              "(não importar) | Matrícula | Data | Data | Tipo de gasto | Quantidade | Custo | Quilómetros");
    dialog.findChild<QLineEdit*>("nome")->setText("Cartão");
    ClickButton(dialog, "Continuar >");
    EXPECT_EQ(Cell(dialog, 0, 1), "recusada");
    desk.script.Next([](QWidget& codes) {
      auto* table = codes.findChild<QTableWidget*>();
      ASSERT_EQ(table->rowCount(), 2);
      for (int row = 0; row < 2; ++row)
        if (table->item(row, 3)->text() == "Diesel Plus") table->item(row, 4)->setText("GASOLEO");
      ClickButton(codes, "Aceitar");
    });
    ClickButton(dialog, "Criar códigos em falta…");
    EXPECT_EQ(Cell(dialog, 0, 1), "nova");
    EXPECT_TRUE(Cell(dialog, 2, 2).contains("ZZ-99-ZZ")) << Cell(dialog, 2, 2).toStdString();
    auto* model = dialog.findChild<desktop::PlanModel*>();
    EXPECT_TRUE(model->setData(model->index(2, 3), "10-GJ-10", Qt::EditRole));
    EXPECT_EQ(Cell(dialog, 2, 1), "aviso");
    EXPECT_TRUE(Cell(dialog, 2, 2).contains(" km em ")) << Cell(dialog, 2, 2).toStdString();
    ClickButton(dialog, "Guardar 3 registos");
    EXPECT_TRUE(Text(dialog, "Guardadas").contains("Linhas do ficheiro: 3, 100,94 €"))
        << Text(dialog, "Guardadas").toStdString();
    EXPECT_EQ(Expenses().size(), 3U);
    ClickButton(dialog, "Anular esta importação");
    EXPECT_TRUE(Text(dialog, "A importação foi anulada").contains("registos saíram"));
    EXPECT_TRUE(Expenses().empty());
    dialog.OpenFile(file);  // the profile knows it, and what its words mean
    EXPECT_TRUE(dialog.findChild<QTableView*>("linhas")->isVisible());
    EXPECT_EQ(Cell(dialog, 0, 1), "nova");
    ClickButton(dialog, "Cancelar");
  });
  window.actions().import_file->trigger();
}

TEST_F(ImportDialogTest, AnImportIsUndoneLikeAnyOtherAct) {
  std::ofstream(file.toStdString()) << "Matrícula;Data;Tipo Gasto;Quantidade;Custo;Km\n"
                                       "10-GJ-10;13-11-2026 10:00;GASOLEO;40;60,00;1500\n";
  const auto vehicles = [this] { return testing_support::Rows(bd(), "SELECT * FROM zor_PV_Viaturas"); };
  const testing_support::Table before = vehicles();
  desk.script.Next([this](QWidget& opened) {
    dynamic_cast<desktop::ImportDialog&>(opened).OpenFile(file);
    for (const char* button : {"Continuar >", "Continuar >", "Guardar 1 registo", "Fechar"})
      ClickButton(opened, button);
  });
  window.actions().import_file->trigger();
  ASSERT_EQ(Expenses().size(), 1U);
  EXPECT_NE(vehicles(), before);
  window.actions().undo->trigger();
  EXPECT_TRUE(Expenses().empty());
  EXPECT_EQ(vehicles(), before);
}

TEST_F(ImportDialogTest, WhatIsNoTableIsToldAndWhatLacksIsAsked) {
  std::ofstream(desk.folder.filePath("imagem.xlsx").toStdString()) << "PK\x03\x04 nada";
  std::ofstream(file.toStdString()) << "Matrícula;Valor\n10-GJ-10;5,00\n";
  desk.script.Next([this](QWidget& opened) {
    auto& dialog = dynamic_cast<desktop::ImportDialog&>(opened);
    desk.script.Answer("OK");
    auto& name = *dialog.findChild<QLineEdit*>("ficheiro");
    name.setFocus();
    QTest::keyClicks(&name, desk.folder.filePath("imagem.xlsx"));
    QTest::keyClick(&name, Qt::Key_Return);
    EXPECT_TRUE(name.text().endsWith("imagem.xlsx")) << "what was typed can be corrected";
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(file)});
    QDragEnterEvent over({5, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&dialog, &over);
    EXPECT_TRUE(over.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&dialog, &drop);
    QApplication::processEvents();
    EXPECT_EQ(name.text(), file);
    ClickButton(dialog, "Continuar >");
    desk.script.Answer("OK");
    ClickButton(dialog, "Continuar >");
    EXPECT_TRUE(desk.script.boxes.last().contains("Falta dizer de onde vem"))
        << desk.script.boxes.last().toStdString();
    ClickButton(dialog, "Cancelar");
  });
  window.actions().import_file->trigger();
  EXPECT_TRUE(Expenses().empty());
}

}  // namespace
}  // namespace desktop_test
