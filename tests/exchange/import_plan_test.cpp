// What an operator does to the rows of a file before they are stored.

#include "exchange/plan/import_plan.h"

#include <fstream>

#include "exchange/assistant/preview_table.h"
#include "exchange/import_plan_fixture.h"
#include "exchange/imports/take_back.h"
#include "exchange/plan/cell_store.h"

namespace exchange {
namespace {

constexpr const char* kMonth =
    "Matrícula;Data;Tipo;Litros;Valor;Km\n"
    "12-AB-34;20-01-2024;GASOLEO;40;60;10400\n"
    "12-AB-34;25-01-2024;GASOLEO;40;61;10300\n"
    "12-AB-34;28-01-2024;GASOLEO;40;x;10800\n";

TEST_F(ImportPlanTest, ACorrectedValueChecksTheOtherRowsOfItsVehicle) {
  Read(kMonth).Check();
  EXPECT_EQ(States(),
            "2 nova\n3 recusada Km: Existe uma quilometragem superior para esta viatura em Gasto anterior. "
            "(linha 2: 10400 km em 20-01-2024)\n4 recusada Custo: «x» não é um número.\n");
  plan->Correct(0, "Km", "10200");
  EXPECT_EQ(States(), "2 nova\n3 nova\n4 recusada Custo: «x» não é um número.\n");
  plan->Correct(2, "Custo", "62,5");
  plan->Correct(1, "Data", "30-01-2024");  // now after the third
  EXPECT_EQ(plan->why(1).reason.substr(plan->why(1).reason.find('(')), "(linha 4: 10800 km em 28-01-2024)");
  EXPECT_EQ(Expenses(), 0) << "looking changes nothing";
  Read(
      "Matrícula;Data;Tipo;Litros;Valor;Km\n12-AB-34;20-01-2024;GASOLEO;40;60;10400\n"
      "12-AB-34;21-01-2024;PORTAGEM;1;5;\n12-AB-34;25-01-2024;GASOLEO;40;61;10300\n")
      .Check();
  EXPECT_NE(plan->why(2).reason.find("(linha 2: 10400 km em 20-01-2024)"), std::string::npos) << States();
}

TEST_F(ImportPlanTest, ARowSetAsideByHandStaysOutAndComesBack) {
  Read(kMonth).Check();
  plan->SetAside(0, true);
  EXPECT_EQ(States(), "2 posta de parte : Pelo operador.\n3 nova\n4 recusada Custo: «x» não é um número.\n");
  EXPECT_EQ(plan->Sums().aside.amount, platform::Currency(60));
  plan->SetAside(0, false);
  EXPECT_EQ(plan->row(0).state, RowState::kNew);
  // A credit note that the operator takes in stays in, whatever is learned later.
  Read("Matrícula;Data;Tipo;Litros;Valor;Km\n12-AB-34;20-01-2024;PORTAGEM;1;-5;0\n").Check();
  EXPECT_EQ(States(), "2 posta de parte : Nota de crédito.\n");
  EXPECT_EQ(plan->Sums().credits.rows, 1);
  plan->SetAside(0, false);
  plan->Learn("TipoGasto", "outro", "PORTAGEM");
  plan->Check();
  EXPECT_EQ(plan->row(0).state, RowState::kRefused);
  Read("Matrícula;Data;Tipo;Litros;Valor;Km\n12-AB-34;20-01-2024;por saber;1;5;0\n").Check();
  plan->Learn("TipoGasto", "por saber", "PORTAGEM");
  plan->Check();
  EXPECT_EQ(plan->Store("a.csv", "soma", "ana").vehicles, std::vector<std::string>{"12-AB-34"});
}

TEST_F(ImportPlanTest, TheRowsOfADocumentAreOneEventOfThoseThatAreTaken) {
  const auto document = [](Profile& profile) { profile.document = Piece{.header = "Doc", .position = 5}; };
  Read(
      "Matrícula;Data;Tipo;Litros;Valor;Doc\n12-AB-34;20-01-2024;PORTAGEM;1;40;A\n"
      "12-AB-34;20-01-2024;PORTAGEM;1;2,5;A\n12-AB-34;20-01-2024;PORTAGEM;1;x;A\n"
      "12-AB-34;20-01-2024;PORTAGEM;1;7;\n12-AB-34;20-01-2024;PORTAGEM;1;9;B\n",
      document)
      .Check();
  const auto shown = [&] {
    std::string all;
    for (std::size_t i = 0; i < plan->size(); ++i)
      all += std::string(NameOf(plan->StateOf(i))) + " " + plan->why(i).column + plan->why(i).reason + "\n";
    return all + plan->Sums().stored.amount.ToText();
  };
  EXPECT_EQ(shown(),
            "recusada Custo«x» não é um número.\nrecusada Soma-se à linha 2.\nrecusada Soma-se à linha 2.\n"
            "nova \nnova \n16");
  plan->SetAside(2, true);
  EXPECT_EQ(shown(), "nova \nnova Soma-se à linha 2.\nposta de parte Pelo operador.\nnova \nnova \n58,5");
  plan->SetAside(0, true);
  EXPECT_EQ(shown(),
            "posta de parte Pelo operador.\nnova \nposta de parte Pelo operador.\nnova \nnova \n18,5");
  plan->SetAside(0, false);
  plan->Correct(4, "Custo", "8");
  EXPECT_EQ(plan->Store("a.csv", "soma", "ana").rows.stored.rows, 4);
  EXPECT_EQ(Rows(bd, "SELECT Qtd, Custo FROM zor_PV_Gastos ORDER BY Custo"),
            (Table{{"1", "7"}, {"1", "8"}, {"2", "42,5"}}));
}

TEST_F(ImportPlanTest, OfADocumentEachTypeOfExpenseIsAnEvent) {
  Read(
      "Matrícula;Data;Tipo;Litros;Valor;Km;Doc\n12-AB-34;20-01-2024;PORTAGEM;1;40;;A\n"
      "12-AB-34;20-01-2024;GASOLEO;30;50;10400;A\n12-AB-34;20-01-2024;PORTAGEM;1;2,5;;A\n",
      [](Profile& profile) { profile.document = Piece{.header = "Doc", .position = 6}; })
      .Store("a.csv", "soma", "ana");
  EXPECT_EQ(Rows(bd, "SELECT TipoGasto, Qtd, Custo FROM zor_PV_Gastos ORDER BY Custo"),
            (Table{{"PORTAGEM", "2", "42,5"}, {"GASOLEO", "30", "50"}}));
}

TEST_F(ImportPlanTest, AFillOfANumberedRowIsComparedWithThoseThatAreStored) {
  AddExpense(bd, "12-AB-34", platform::Date::FromParts(2024, 1, 15), "GASOLEO", "40", "60", 12000);
  Read(
      "Matrícula;Data;Tipo;Litros;Valor;Km;N\n12-AB-34;10-01-2024;GASOLEO;40;60;11000;T1\n"
      "12-AB-34;20-01-2024;GASOLEO;40;60;11500;T2\n12-AB-34;21-01-2024;GASOLEO;40;60;12500;T1\n",
      [](Profile& profile) { profile.transaction = Piece{.header = "N", .position = 6}; })
      .Check();
  EXPECT_EQ(
      States(),
      "2 nova\n3 recusada Km: Existe uma quilometragem superior para esta viatura em Gasto anterior. (já "
      "gravado: 12000 km em 15-01-2024)\n4 repetida : O número T1 já foi importado.\n");
}

TEST_F(ImportPlanTest, RefusedRowsGoBackInTheShapeInWhichTheyCame) {
  Read(
      "Extracto de Janeiro\n\nMatrícula;Data;Tipo;Litros;Valor;Km;Nota\n"
      "12-AB-34;20-01-2024;GASOLEO;40;60;10400;boa\nZZ-99-ZZ;20-01-2024;GASOLEO;40;60;10400;\"a; "
      "\"\"b\"\"\"\n")
      .Store("a.csv", "soma", "ana");
  std::ostringstream refused;
  plan->WriteRefused(refused);
  EXPECT_EQ(refused.str(),
            "Extracto de Janeiro\nMatrícula;Data;Tipo;Litros;Valor;Km;Nota\n"
            "ZZ-99-ZZ;20-01-2024;GASOLEO;40;60;10400;\"a; \"\"b\"\"\"\n");
  // Corrected by the sender, they are a file of the same profile.
  EXPECT_EQ(Expenses(), 1);
}

TEST_F(ImportPlanTest, WhatCanBeReadInTwoWaysIsAskedBeforeAnythingIsChecked) {
  Read("Matrícula;Data;Tipo;Litros;Valor;Km\n12-AB-34;02/03/2024;PORTAGEM;1;1.250;0\n");
  ASSERT_EQ(plan->questions().size(), 2U);
  EXPECT_EQ(plan->questions()[0].example, "02/03/2024");
  EXPECT_EQ(plan->questions()[1].example, "1.250");
  EXPECT_THROW(plan->Check(), std::runtime_error);
  EXPECT_THROW(plan->Store("a.csv", "soma", "ana"), std::runtime_error);
  plan->Answer(DateOrder::kMonthFirst);
  plan->Answer('.');
  EXPECT_TRUE(plan->questions().empty());
  plan->Check();
  EXPECT_EQ(plan->Values(0)[1], "03-02-2024");
  EXPECT_EQ(plan->Sums().stored.amount.ToText(), "1,25");
}

TEST_F(ImportPlanTest, AnImportThatIsGivenUpLeavesNothing) {
  Read(kMonth);
  for (const std::size_t giveUpAt : {0U, 3U}) {
    EXPECT_THROW(
        plan->Store("a.csv", "soma", "ana", [&](std::size_t done, std::size_t) { return done < giveUpAt; }),
        Cancelled);
    EXPECT_EQ(Expenses(), 0);
    EXPECT_TRUE(ListImports(bd).empty());
  }
  plan->Check();
  EXPECT_EQ(plan->Store("a.csv", "soma", "ana").rows.stored.rows, 1);
}

TEST_F(ImportPlanTest, WhatTheFileAddsUpToIsComparedWithItsRows) {
  const struct {
    const char* sums;
    const char* declared;
  } cases[] = {{"", "-"},
               {"Total;;;;102;\n", "102"},
               {"Subtotal;;;;40;\nTotal geral;;;;102;\n", "102"},
               {"Subtotal;;;;40;\nSubtotal;;;;62;\n", "102"},
               {"Subtotal;;;;40;\nTotal;;;;105;\n", "105"}};
  for (const auto& one : cases) {
    SCOPED_TRACE(one.sums);
    Read(std::string("Matrícula;Data;Tipo;Litros;Valor;Km\n12-AB-34;20-01-2024;PORTAGEM;1;40;0\n"
                     "12-AB-34;21-01-2024;PORTAGEM;1;67;0\n12-AB-34;22-01-2024;PORTAGEM;1;-5;0\n") +
         one.sums)
        .Check();
    const Reconciliation sums = plan->Sums();
    EXPECT_EQ(sums.declared ? sums.declared->ToText() : "-", one.declared);
    EXPECT_EQ(sums.stored.amount + sums.aside.amount + sums.refused.amount + sums.known.amount,
              sums.file.amount);
  }
}

TEST_F(ImportPlanTest, WhatIsOddIsToldAndStoredAllTheSame) {
  std::string csv = "Matrícula;Data;Tipo;Litros;Valor;Km\n";
  for (int i = 1; i <= 9; ++i)
    csv +=
        "12-AB-34;0" + std::to_string(i) + "-02-2024;GASOLEO;40;64;" + std::to_string(10000 + i * 500) + "\n";
  Read(csv + "12-AB-34;10-02-2024;GASOLEO;40;120;15000\n", [](Profile& profile) {
    profile.dateOrder = DateOrder::kDayFirst;
  }).Check();
  EXPECT_EQ(plan->row(8).state, RowState::kNew) << States();
  EXPECT_EQ(plan->row(9).state, RowState::kWarning) << States();
  EXPECT_NE(plan->why(9).reason.find("reço"), std::string::npos) << States();
  const ExportTable shown = PreviewTable(*plan, RowState::kWarning);
  ASSERT_EQ(shown.rows.size(), 1U);
  EXPECT_EQ(std::get<double>(shown.rows[0][0]), 11);
  EXPECT_EQ(std::get<std::string>(shown.rows[0][2]), plan->why(9).reason);
  EXPECT_EQ(std::get<platform::Currency>(shown.rows[0].back()), platform::Currency(15000));
  EXPECT_EQ(plan->Store("a.csv", "soma", "ana").rows.stored.rows, 10);
}

TEST_F(ImportPlanTest, OfEqualRowsAsManyAreNewAsTheDatabaseLacksWhateverItsAge) {
  AddExpense(bd, "12-AB-34", platform::Date::FromParts(2021, 5, 1), "GASOLEO", "40", "60", 10350);
  Read("Matrícula;Data;Tipo;Litros;Valor;Km\n12-AB-34;20-01-2024;GASOLEO;40;60;10340\n").Check();
  EXPECT_NE(plan->why(0).reason.find("(já gravado: 10350 km em 01-05-2021)"), std::string::npos) << States();
  Read(kMonth).Check();
  plan->Store("a.csv", "soma", "ana");
  Read(
      "Matrícula;Data;Tipo;Litros;Valor;Km\n12-AB-34;20-01-2024;GASOLEO;40;60;10400\n"
      "12-AB-34;20-01-2024;GASOLEO;40;60;10400\n12-AB-34;21-01-2024;GASOLEO;40;60;10200\n")
      .Check();
  EXPECT_EQ(States().substr(0, 26), "2 repetida\n3 nova\n4 recusa");
}

TEST_F(ImportPlanTest, KilometresAreProposedOnTheLineThroughReadings) {
  using platform::Date;
  Sql("UPDATE zor_PV_Viaturas SET KmInicial=0");
  const std::pair<Date, int> stored[] = {{Date::FromParts(2023, 9, 1), 5000},
                                         {Date::FromParts(2024, 1, 10), 11000},
                                         {Date::FromParts(2024, 1, 20), 12000},
                                         {Date::FromParts(2024, 2, 20), 11900}};
  for (const auto& [date, km] : stored) AddExpense(bd, "12-AB-34", date, "GASOLEO", "40", "60", km);
  const auto proposed = [&](const char* date, bool accept) {
    Read(std::string("Matrícula;Data;Tipo;Litros;Valor;Km\n12-AB-34;") + date + ";GASOLEO;40;61;\n",
         [](Profile& profile) {
           profile.proposeKm = true;
           profile.dateOrder = DateOrder::kDayFirst;
         });
    plan->AcceptProposals(accept);
    plan->Check();
    return States().substr(2);
  };
  EXPECT_EQ(proposed("15-01-2024", true), "aviso : Km propostos: 11500.\n");
  EXPECT_EQ(proposed("15-01-2024", false),
            "recusada Km: Sem quilómetros; propõem-se 11500, que ninguém viu ainda.\n");
  EXPECT_EQ(proposed("16-01-2024 06:00", true), "aviso : Km propostos: 11625.\n");
  EXPECT_EQ(proposed("01-12-2023", true), "aviso : Km propostos: 9167.\n");
  EXPECT_EQ(proposed("01-08-2023", true),
            "recusada Km: O tipo de Gasto exige quilometragem superior a zero!\n")
      << "nothing was read before it";
  EXPECT_EQ(proposed("01-02-2024", true).substr(0, 8), "recusada") << "the line goes down";
  Sql("DELETE FROM zor_PV_Gastos WHERE Km=11900");
  EXPECT_EQ(proposed("25-01-2024", true), "aviso : Km propostos: 12500.\n");
  Sql("DELETE FROM zor_PV_Gastos WHERE Km=11000");
  EXPECT_EQ(proposed("25-01-2024", true).substr(0, 8), "recusada")
      << "one reading of the last ninety days is no line";
  // The file's own readings count, each for its vehicle.
  for (const char* plate : {"A", "B"}) AddVehicle(bd, plate, 0);
  Read(
      "Matrícula;Data;Tipo;Litros;Valor;Km\nA;11-01-2024;GASOLEO;40;61;1000\nB;11-01-2024;GASOLEO;40;61;"
      "7000\n"
      "A;16-01-2024;GASOLEO;40;62;\nA;21-01-2024;GASOLEO;40;63;2000\nB;16-01-2024;GASOLEO;40;62;\n"
      "B;21-01-2024;GASOLEO;40;63;x\nB;31-01-2024;GASOLEO;40;63;9000\n",
      [](Profile& profile) { profile.proposeKm = true; });
  plan->AcceptProposals(true);
  plan->Check();
  EXPECT_EQ(States(),
            "2 nova\n3 nova\n4 aviso : Km propostos: 1500.\n5 nova\n6 aviso : Km propostos: 7500.\n"
            "7 recusada Km: «x» não é um número.\n8 nova\n");
}

TEST(CellStore, KeepsRowsInMemoryAndInAFileAlike) {
  CellStore store(100);
  std::vector<std::pair<std::uint64_t, std::string>> rows;
  for (int i = 0; i < 3000; ++i) {
    const std::string row = std::string(static_cast<std::size_t>(i % 40), 'a') + std::to_string(i);
    rows.emplace_back(store.Add(row), row);
    if (i % 7 == 0) {
      EXPECT_EQ(store.At(rows.back().first), row);
    }
  }
  rows.emplace_back(store.Add(std::string(100000, 'z')), std::string(100000, 'z'));
  for (const auto& [place, row] : rows) ASSERT_EQ(store.At(place), row);
  for (auto row = rows.rbegin(); row != rows.rend(); ++row) ASSERT_EQ(store.At(row->first), row->second);
}

}  // namespace
}  // namespace exchange
