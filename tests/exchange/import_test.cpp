#include "exchange/import.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <tuple>

#include "console/alerts_command.h"
#include "console/list_printer.h"
#include "console/program.h"
#include "exchange/import_fixture.h"

namespace exchange {

using namespace console;
namespace {

using namespace testing_support;

const char* const kExpenses =
    "matricula; Data ;TipoGasto;Motorista;Qtd;ValorUn;Km;\n"
    "12-AB-34;01-03-2024 08:00;GASOLEO;1;50,00;1,500;10000\n"
    "99-ZZ-99;01-03-2024;GASOLEO;1;50;1,5;10000\n"
    "12-AB-34;02-03-2024;GASOLEO;1;0;1,5;10100\n"
    "12-AB-34;03-03-2024;GASOLEO;1;40;1,5;9000\n"
    "12-AB-34;31-02-2024;GASOLEO;1;40;1,5;10500\n"
    "12-AB-34;04-03-2024;GASOLEO;9;40;1,5;10500\n"
    "12-AB-34;05-03-2024;GASOLEO;1;quarenta;1,5;10500\n"
    "12-AB-34;06-03-2024;O'LEO;1;40;1,5;10500\n"
    "12-AB-34;10-03-2024;GASOLEO;1;40;1,5;10500\n";

/// What the error that ends an import says.
std::string Told(const std::function<void()>& import) {
  try {
    import();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST_F(ImportTest, TakesWhatPassesTheFichasRulesAndNamesTheRest) {
  const ImportResult result = Import("gastos", kExpenses);
  EXPECT_EQ(result.added, 2);
  EXPECT_EQ(report.str(),
            "linha 3, Matricula: Viatura não existente!\n"
            "linha 4, Qtd: O Tipo de Gasto exige quantidade superior a zero!\n"
            "linha 5, Km: Existe uma quilometragem superior para esta viatura em Gasto anterior.\n"
            "linha 6, Data: «31-02-2024» não é uma data.\n"
            "linha 7, Motorista: Motorista não existente!\n"
            "linha 8, Qtd: «quarenta» não é um número.\n"
            "linha 9, TipoGasto: Não pode ter apóstrofos.\n");
  EXPECT_EQ(Rows(bd, "SELECT KmActual, Media, CustoMedioKmC, CustoTotal FROM zor_PV_Viaturas"),
            (Table{{"10500", "8", "0,12", "135"}}))
      << "the vehicle's figures are those of the ficha";
  const ImportResult again = Import("gastos", kExpenses);
  EXPECT_EQ(again.added, 0);
  EXPECT_EQ(again.known, 2);
  EXPECT_EQ(Rows(bd, "SELECT Gst_Id FROM zor_PV_Gastos").size(), 2U);
}

TEST_F(ImportTest, NothingIsStoredOfASimulationNorOfAFileThatFails) {
  EXPECT_EQ(Import("gastos", kExpenses, true).added, 2);
  for (const char* file : {"", "Matricula;Data\n12-AB-34;01-03-2024\n", "Matricula;Data;TipoGasto;Litros\n",
                           "Matricula;Data;TipoGasto;Data\n"})
    EXPECT_THROW(Import("gastos", file), std::runtime_error) << file;
  std::ofstream full("/dev/full");
  std::istringstream file(kExpenses);
  EXPECT_THROW(ImportCsv(*bd, *MakeImportTarget("gastos", bd), file, false, full), std::runtime_error)
      << "nobody is told what is refused";
  EXPECT_TRUE(Rows(bd, "SELECT Gst_Id FROM zor_PV_Gastos").empty());
  EXPECT_EQ(Rows(bd, "SELECT KmActual FROM zor_PV_Viaturas"), (Table{{"10000"}}));
  EXPECT_EQ(MakeImportTarget("multas?", bd), nullptr);
}

TEST_F(ImportTest, AnEmptyFieldHoldsNothingOfTheRowBefore) {
  Import("viaturas", "Matricula;ValContrato;Mensalidade;Obs\nAA;01-02-2024;5;x\nBB;;;\n");
  EXPECT_EQ(Rows(bd, "SELECT ValContrato, Mensalidade, Obs FROM zor_PV_Viaturas WHERE Matricula='BB'"),
            (Table{{"NULL", "0", ""}}));
}

TEST_F(ImportTest, WhatTheFileLeavesOutComesFromTheType) {
  Import("gastos", "Matricula,Data,TipoGasto,Qtd,Km\n12-AB-34,2024-03-01T08:30,GASOLEO,40.5,10000\n");
  EXPECT_EQ(Rows(bd, "SELECT Data, ValorUn, Custo, Motorista FROM zor_PV_Gastos"),
            (Table{{"01-03-2024 08:30:00", "1,659", "67,1895", ""}}));
}

TEST_F(ImportTest, VehiclesAndDriversThatExistStayAsTheyAre) {
  const ImportResult vehicles =
      Import("viaturas", "Matricula;Marca;KmInicial;KmActual\n12-ab-34;REN;5;5\nAA-00-BB;REN;1.500;0\n");
  EXPECT_EQ(vehicles.added, 1);
  EXPECT_EQ(vehicles.known, 1);
  EXPECT_EQ(Rows(bd, "SELECT KmInicial, KmActual FROM zor_PV_Viaturas ORDER BY Matricula"),
            (Table{{"10000", "10000"}, {"1500", "1500"}}));
  const ImportResult drivers = Import("motoristas", "Codigo;Nome;ValidadePassa\n1;Outra;\n2;Zé;01-01-2030\n");
  EXPECT_EQ(drivers.added, 1);
  EXPECT_EQ(Rows(bd, "SELECT Nome, ValidadePassa FROM zor_Funcionarios ORDER BY Codigo"),
            (Table{{"Ana", "NULL"}, {"Zé", "01-01-2030"}}));
}

TEST_F(ImportTest, ANumberThatCanBeReadInTwoWaysIsRefusedUnlessTheFileTells) {
  const std::string header = "Matricula;Data;TipoGasto;Qtd;ValorUn;Km\n12-AB-34;01-03-2024;GASOLEO;";
  const struct {
    const char* what;
    const char* numbers;
    std::optional<char> decimal;
    const char* stored;  // null: refused
  } cases[] = {{"three decimals alone", "45.123;1.789;10000", {}, nullptr},
               {"the other mark", "45,123;1,789;10000", {}, nullptr},
               {"marks that contradict each other", "45,5;1.7;10.500", {}, nullptr},
               {"the option settles it", "45.123;1.789;10000", '.', "45,123 1,789 10000"},
               {"the other way", "45.123;1.789;10000", ',', "45123 1789 10000"},
               {"another column tells", "40,5;1,789;10.500", {}, "40,5 1,789 10500"},
               {"a number with both marks tells", "40;1.789;10,500.0", {}, "40 1,789 10500"},
               {"nothing is grouped behind a zero", "40;0.789;10500", {}, "40 0,789 10500"},
               {"nor after four digits", "1.200;2;10500,000", {}, "1200 2 10500"},
               {"no mark at all", "40;2;10500", {}, "40 2 10500"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Sql("DELETE FROM zor_PV_Gastos");
    if (c.stored == nullptr) {
      EXPECT_THROW(Import("gastos", header + c.numbers + "\n", false, c.decimal), std::runtime_error);
      EXPECT_TRUE(Rows(bd, "SELECT Gst_Id FROM zor_PV_Gastos").empty());
    } else {
      Import("gastos", header + c.numbers + "\n", false, c.decimal);
      const Table rows = Rows(bd, "SELECT Qtd, ValorUn, Km FROM zor_PV_Gastos");
      ASSERT_EQ(rows.size(), 1U) << report.str();
      EXPECT_EQ(rows[0][0] + " " + rows[0][1] + " " + rows[0][2], c.stored);
    }
  }
  EXPECT_EQ(
      Told([&] { Import("gastos", header + "45;1.789;10000\n"); }),
      "A coluna «ValorUn» tem números que se podem ler de duas maneiras: «1.789», na linha 2, é 1789 ou "
      "1,789. Diga qual é o sinal dos decimais do ficheiro, com «--decimal ,» ou «--decimal .».");
  EXPECT_EQ(Import("viaturas", "Matricula;KmInicial\nAA-00-BB;125.300\n").added, 1)
      << "a column of whole numbers";
  EXPECT_EQ(Rows(bd, "SELECT KmInicial FROM zor_PV_Viaturas WHERE Matricula='AA-00-BB'"),
            (Table{{"125300"}}));
}

TEST_F(ImportTest, AQuoteThatSwallowsRowsRefusesTheFile) {
  const std::string header = "Matricula;Data;TipoGasto;Custo;Obs\n";
  const std::string first = "12-AB-34;01-03-2024;PORTAGEM;5;\"Posto \"\"A\"\"\nda ponte\"\n";
  const struct {
    const char* rows;
    const char* line;
  } cases[] = {{"12-AB-34;02-03-2024;PORTAGEM;5;\"A1\n12-AB-34;03-03-2024;PORTAGEM;6;\n", "linha 4 "},
               {"12-AB-34;02-03-2024;PORTAGEM;5;\"A1\n12-AB-34;03-03-2024;PORTAGEM;6;\"A2\"\n", "linha 4 "},
               {"12-AB-34;02-03-2024;PORTAGEM;5;\n12-AB-34;02-03-2024;PORTAGEM;5;\"A1", "linha 5 "}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.rows);
    const std::string told = Told([&] { Import("gastos", header + first + c.rows); });
    EXPECT_NE(told.find(c.line), std::string::npos) << told;
    EXPECT_EQ(report.str(), "");
    EXPECT_TRUE(Rows(bd, "SELECT Gst_Id FROM zor_PV_Gastos").empty());
  }
  EXPECT_EQ(Import("gastos", header + first + "12-AB-34;02-03-2024;PORTAGEM;5;\"A\"1\n").added, 2);
  EXPECT_EQ(Rows(bd, "SELECT Obs FROM zor_PV_Gastos ORDER BY Data"),
            (Table{{"Posto \"A\"\nda ponte"}, {"A1"}}));
  Import("gastos", header + "12-AB-34;04-03-2024;NADA;5;\"A\n\n1\"\n");
  EXPECT_EQ(report.str(), "linhas 2 a 4, TipoGasto: Tipo Gasto não existente!\n");
  Import("gastos", header + "12-AB-34;04-03-2024;NADA;5;\"A\n1\"");
  EXPECT_EQ(report.str(), "linhas 2 a 3, TipoGasto: Tipo Gasto não existente!\n");
}

TEST_F(ImportTest, OfEqualRowsThoseAreNewThatTheDatabaseLacks) {
  const struct {
    const char* what;
    std::string header;
    std::string row;
  } kinds[] = {{"gastos", "Matricula;Data;TipoGasto;Custo\n", "12-AB-34;01-03-2024;PORTAGEM;5\n"},
               {"revisoes", "Matricula;Data;Custo\n", "12-AB-34;01-03-2024;5\n"}};
  for (const auto& [what, header, row] : kinds) {
    SCOPED_TRACE(what);
    const std::string other = row.substr(0, row.size() - 2) + "6\n";
    const std::tuple<const char*, int, int> files[] = {{"aab", 3, 0}, {"aab", 0, 3}, {"abaab", 2, 3}};
    for (const auto& [rows, added, known] : files) {
      std::string text = header;
      for (const char* each = rows; *each != '\0'; ++each) text += *each == 'a' ? row : other;
      const ImportResult result = Import(what, text);
      EXPECT_EQ(result.added, added) << "two tolls of one price on one day";
      EXPECT_EQ(result.known, known);
    }
  }
}

TEST_F(ImportTest, AFillIsComparedWithTheOneBeforeItHoweverTheyWereStored) {
  using platform::Date;
  AddExpense(bd, "12-AB-34", Date::FromParts(2024, 2, 20), "GASOLEO", "40", "60", 12000);
  AddExpense(bd, "12-AB-34", Date::FromParts(2024, 2, 10), "GASOLEO", "40", "60", 11000);
  Sql("INSERT INTO zor_PV_Gastos (Matricula, Data, Km) VALUES ('12-AB-34', '2024.02.11', 99999)");  // no fill
  const ImportResult result =
      Import("gastos",
             "Matricula;Data;TipoGasto;Qtd;Km\n12-AB-34;25-02-2024;GASOLEO;40;11500\n"
             "12-ab-34 ;15-02-2024;GASOLEO;40;11400\n12-AB-34;26-02-2024;GASOLEO;40;12400\n"
             "12-AB-34;27-02-2024;GASOLEO;40;12300\n12-AB-34;16-02-2024;GASOLEO;40;11300\n");
  EXPECT_EQ(result.added, 2);
  std::string refused;
  for (const char* line : {"2", "3", "4", "5", "6"})
    if (report.str().find(std::string("linha ") + line + ", Km: Existe") != std::string::npos)
      refused += line;
  EXPECT_EQ(refused, "256") << report.str();
}

TEST_F(ImportTest, WhatManyRowsNeedIsReadTogether) {
  using platform::Date;
  AddVehicle(bd, "A", 0);
  AddVehicle(bd, "B", 0);
  AddExpense(bd, "A", Date::FromParts(2020, 1, 1), "GASOLEO", "40", "60", 9000);
  const auto recording = platform::MakeRef<RecordingDataAccess>(bd);
  const auto reads = [&](const std::string& words) {
    return std::count_if(recording->statements.begin(), recording->statements.end(),
                         [&](const std::string& one) { return one.find(words) != std::string::npos; });
  };
  for (const char* kind : {"gastos", "revisoes"}) {
    SCOPED_TRACE(kind);
    recording->statements.clear();
    const auto target = MakeImportTarget(kind, recording);
    target->Expect({"A", "B", "12-AB-34"}, Date::FromParts(2024, 2, 1), Date::FromParts(2024, 2, 2));
    for (const char* plate : {"A", "A", "B", "12-AB-34"}) {
      ImportRow row(target->Columns());
      for (std::size_t i = 0; i < target->Columns().size(); ++i) {
        const std::string_view name = target->Columns()[i].name;
        if (name == "Matricula") row.at(i).text = plate;
        if (name == "TipoGasto") row.at(i).text = "GASOLEO";
        if (name == "Data") row.at(i).date = Date::FromParts(2024, 2, 1);
        if (name == "Qtd") row.at(i).number = 40;
        if (name == "Km") row.at(i).number = 8000;
      }
      const bool refused = std::string_view(kind) == "gastos" && *plate == 'A';
      if (refused)
        EXPECT_THROW(target->Judge(row), Refusal) << "fewer kilometres than years ago";
      else
        EXPECT_EQ(target->Judge(row), Outcome::kAdded);
    }
    EXPECT_EQ(
        reads("Matricula IN (N'A',N'B',N'12-AB-34') and Data>='2023.10.04 00:00:00' and Data<='2024.02.02 "
              "00:00:00'"),
        1);
    EXPECT_EQ(reads("Matricula IN"), 1);
    EXPECT_EQ(reads("G.Matricula='A'"), std::string_view(kind) == "gastos" ? 1 : 0);
  }
}

TEST_F(ImportTest, VehiclesWithoutTheirNextDatesAreNoAlerts) {
  Sql("DELETE FROM zor_PV_Viaturas");
  Sql("INSERT INTO zor_PV_Categorias (Codigo, Nome) VALUES ('LIGP', 'Ligeiro')");
  const std::string vehicles =
      "Matricula;Marca;Categoria;KmInicial;AnoMatricula;DataMatricula;SeloPago\n"
      "AA-00-BB;REN;LIGP;90000;2023;01-02-2023;\nAA-00-CC;REN;LIGP;90000;2023;15-10-2023;1\n";
  EXPECT_EQ(Import("viaturas", vehicles).added, 2) << report.str();
  EXPECT_EQ(Rows(bd, "SELECT DataSelo, SeloPago, DataPrxRev, KmPrxRev, DataPrxInsp FROM zor_PV_Viaturas"),
            (Table{{"28-02-2025", "False", "NULL", "9999999", "NULL"},
                   {"31-10-2024", "True", "NULL", "9999999", "NULL"}}));
  std::ostringstream out;
  EXPECT_EQ(PrintAlerts(bd, {}, out, out), kDone) << out.str();
}

TEST_F(ImportTest, WhatTheListsWriteIsTakenBackAsItWas) {
  const std::vector<std::string> names = {"=1+1", "+351 912", "-5", "@soma", "\tx", "\ry", "'=1", "''-x",
                                          "'olá", "a=b",      "\"", "x;y",   "7",   "",    "' ="};
  for (std::size_t i = 0; i < names.size(); ++i) AddDriver(bd, "N" + std::to_string(10 + i), names[i]);
  zorCrmParvel::RecordsetRef rows;
  bd->AbrirLeitura("", "SELECT Codigo, Nome FROM zor_Funcionarios WHERE Codigo>'N' ORDER BY Codigo", rows);
  GridForm form;
  form.Grelha.SetDataSource(rows);
  std::ostringstream csv;
  PrintList(csv, form.Grelha, Output::kCsv);
  EXPECT_NE(
      csv.str().find("N10;'=1+1\nN11;'+351 912\nN12;'-5\nN13;'@soma\nN14;'\tx\nN15;\"'\ry\"\nN16;''=1\n"),
      std::string::npos)
      << csv.str();
  Sql("DELETE FROM zor_Funcionarios WHERE Codigo>'N'");
  EXPECT_EQ(Import("motoristas", csv.str()).added, static_cast<long>(names.size())) << report.str();
  const Table stored = Rows(bd, "SELECT Nome FROM zor_Funcionarios WHERE Codigo>'N' ORDER BY Codigo");
  for (std::size_t i = 0; i < names.size(); ++i) EXPECT_EQ(stored.at(i).at(0), names[i]);
}

}  // namespace
}  // namespace exchange
