#include "console/import.h"

#include <sstream>

#include "support/database_test.h"

namespace console {
namespace {

using namespace testing_support;

TEST(Csv, TellsSeparatorEncodingAndDecimalMark) {
  const struct {
    const char* text;
    char separator;
    bool utf8;
    char decimal;
  } files[] = {{"a;b\n1,5;2\n", ';', true, ','},
               {"a,b\n\"1.5\",2\n", ',', true, '.'},
               {"a\tb\n1.234\t5\n", '\t', true, ','},
               {"a|b\n1.234,56|5\n", '|', true, ','},
               {"a;b\n1,234.56;5\n", ';', true, '.'},
               {"\xEF\xBB\xBF"
                "a;b\ncaf\xC3\xA9;1\n",
                ';', true, ','},
               {"a;b\ncaf\xE9;1.25\n", ';', false, '.'},
               {"a;b\n1.234.567;x\n", ';', true, ','}};
  for (const auto& f : files) {
    SCOPED_TRACE(f.text);
    std::istringstream file(f.text);
    const CsvShape shape = DetectCsv(file);
    EXPECT_EQ(shape.separator, f.separator);
    EXPECT_EQ(shape.utf8, f.utf8);
    EXPECT_EQ(shape.decimal, f.decimal);
    EXPECT_EQ(shape.header[0], "a");
  }
}

TEST(Csv, ReadsQuotesBreaksAndOldEncodings) {
  std::istringstream file("a;b\r\n\"x;\"\"y\"\"\nz\";\x80 \xE7\r\n\r\n ;\n1");
  const CsvShape shape = DetectCsv(file);
  CsvReader reader(file, shape);
  std::vector<std::string> row;
  ASSERT_TRUE(reader.Next(row));
  ASSERT_TRUE(reader.Next(row));
  EXPECT_EQ(row, (std::vector<std::string>{"x;\"y\"\nz", "€ ç"}));
  EXPECT_EQ(reader.line(), 2);
  ASSERT_TRUE(reader.Next(row));
  EXPECT_EQ(reader.line(), 5);
  ASSERT_TRUE(reader.Next(row));
  EXPECT_EQ(row, std::vector<std::string>{"1"});
  EXPECT_FALSE(reader.Next(row));
}

TEST(Csv, NumbersAreReadOnlyWhenTheyAreWhole) {
  EXPECT_EQ(RegionalNumber("1.234,5", ','), "1234,5");
  EXPECT_EQ(RegionalNumber("1,234.5", '.'), "1234,5");
  EXPECT_EQ(RegionalNumber(" -12 ", ','), "-12");
  for (const char* bad : {"1.5", "12.34,5", "1.2345", "abc", "", "1,2,3", "1-2", "--1", "1,2x"})
    EXPECT_EQ(RegionalNumber(bad, ','), "") << bad;
}

class ImportTest : public DatabaseTest {
 protected:
  ImportTest() { AddFleet(bd, 10000); }
  ImportResult Import(const std::string& what, const std::string& csv, bool simulate = false) {
    std::istringstream file(csv);
    report.str("");
    return ImportCsv(*bd, *MakeImportTarget(what, bd), file, simulate, report);
  }

  std::ostringstream report;
};

const char* const kExpenses =
    "matricula;Data;TipoGasto;Motorista;Qtd;ValorUn;Km\n"
    "12-AB-34;01-03-2024 08:00;GASOLEO;1;50,00;1,500;10000\n"
    "99-ZZ-99;01-03-2024;GASOLEO;1;50;1,5;10000\n"
    "12-AB-34;02-03-2024;GASOLEO;1;0;1,5;10100\n"
    "12-AB-34;03-03-2024;GASOLEO;1;40;1,5;9000\n"
    "12-AB-34;31-02-2024;GASOLEO;1;40;1,5;10500\n"
    "12-AB-34;04-03-2024;GASOLEO;9;40;1,5;10500\n"
    "12-AB-34;05-03-2024;GASOLEO;1;quarenta;1,5;10500\n"
    "12-AB-34;06-03-2024;O'LEO;1;40;1,5;10500\n"
    "12-AB-34;10-03-2024;GASOLEO;1;40;1,5;10500\n";

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

TEST_F(ImportTest, SimulatingStoresNothing) {
  EXPECT_EQ(Import("gastos", kExpenses, true).added, 2);
  EXPECT_TRUE(Rows(bd, "SELECT Gst_Id FROM zor_PV_Gastos").empty());
  EXPECT_EQ(Rows(bd, "SELECT KmActual FROM zor_PV_Viaturas"), (Table{{"10000"}}));
}

TEST_F(ImportTest, AFileThatCannotBeReadStoresNothing) {
  EXPECT_THROW(Import("gastos", ""), std::runtime_error);
  EXPECT_THROW(Import("gastos", "Matricula;Data\n12-AB-34;01-03-2024\n"), std::runtime_error);
  EXPECT_THROW(Import("gastos", "Matricula;Data;TipoGasto;Litros\n"), std::runtime_error);
  EXPECT_EQ(MakeImportTarget("multas?", bd), nullptr);
}

TEST_F(ImportTest, WhatTheFileLeavesOutComesFromTheType) {
  Import("gastos", "Matricula,Data,TipoGasto,Qtd,Km\n12-AB-34,2024-03-01T08:30,GASOLEO,40.5,10000\n");
  EXPECT_EQ(Rows(bd, "SELECT Data, ValorUn, Custo, Motorista FROM zor_PV_Gastos"),
            (Table{{"01-03-2024 08:30:00", "1,659", "67,1895", ""}}));
}

TEST_F(ImportTest, VehiclesAndDriversThatExistStayAsTheyAre) {
  const std::string vehicles =
      "Matricula;Marca;KmInicial;AnoMatricula;DataMatricula;SeloPago\n"
      "12-ab-34;REN;5;2020;01-02-2020;1\n"
      "AA-00-BB;REN;1.500;2020;01-02-2020;1\n"
      "AA-00-CC;NADA;1;2020;01-02-2020;0\n"
      "AA-00-DD;REN;1;2024;01-02-2020;0\n"
      "AA-00-EE-RRR;REN;1;2020;01-02-2020;0\n"
      "AA-00-FF;REN;1;;01-02-2020;0\n";
  const ImportResult result = Import("viaturas", vehicles);
  EXPECT_EQ(result.added, 1);
  EXPECT_EQ(result.known, 1);
  EXPECT_EQ(report.str(),
            "linha 4, Marca: Marca não existente!\n"
            "linha 5, AnoMatricula: Valor inválido!\n"
            "linha 6, Matricula: Tem mais de 10 caracteres.\n"
            "linha 7, AnoMatricula: Campo obrigatório!\n");
  EXPECT_EQ(Rows(bd, "SELECT KmInicial, KmActual, SeloPago FROM zor_PV_Viaturas WHERE Matricula='AA-00-BB'"),
            (Table{{"1500", "1500", "True"}}));
  const ImportResult drivers = Import("motoristas", "Codigo;Nome;ValidadePassa\n1;Outra;\n2;Zé;01-01-2030\n");
  EXPECT_EQ(drivers.added, 1);
  EXPECT_EQ(Rows(bd, "SELECT Nome, ValidadePassa FROM zor_Funcionarios ORDER BY Codigo"),
            (Table{{"Ana", "NULL"}, {"Zé", "01-01-2030"}}));
}

TEST_F(ImportTest, EveryEventHasItsColumnsCodesAndTotals) {
  Sql("INSERT INTO zor_PV_TiposManut (Codigo, Nome) VALUES ('OLEO', 'Óleo')");
  Sql("INSERT INTO zor_PV_Companhias (Codigo, Nome) VALUES ('TEJO', 'Tejo')");
  Sql("INSERT INTO zor_PV_TiposSeguro (Codigo, Nome) VALUES ('RC', 'RC')");
  Sql("INSERT INTO zor_PV_TiposAcessorios (Codigo, Nome) VALUES ('GPS', 'GPS')");
  const struct {
    const char* what;
    const char* csv;  // a good row, then one with a code that doesn't exist
    const char* refused;
    const char* total;
  } files[] = {
      {"revisoes",
       "Matricula;Data;TipoManut;Km;Custo\n12-AB-34;01-02-2024;OLEO;10500;100\n"
       "12-AB-34;01-02-2024;NADA;1;1\n",
       "TipoManut: Tipo Manutenção não existente!", "100"},
      {"inspecoes", "Matricula;Data;Km;Custo\n12-AB-34;01-02-2024;10500;30\n99-ZZ-99;01-02-2024;1;1\n",
       "Matricula: Viatura não existente!", "30"},
      {"acessorios",
       "Matricula;Data;TipoAcessorio;Custo;DataVal\n12-AB-34;01-02-2024;GPS;50;\n"
       "12-AB-34;01-02-2024;X;1;\n",
       "TipoAcessorio: Tipo Acessório não existente!", "80"},
      {"apolices",
       "Matricula;Validade;Companhia;TipoSeguro;Apolice;Premio\n12-AB-34;01-02-2025;TEJO;RC;A1;300\n"
       "12-AB-34;01-02-2025;TEJO;XX;A1;300\n",
       "TipoSeguro: Tipo de Seguro não existente!", "80"},
      {"multas", "Matricula;Data;Motorista;ValorMulta\n12-AB-34;01-02-2024;1;60\n12-AB-34;01-02-2024;9;60\n",
       "Motorista: Motorista não existente!", "80"},
      {"sinistros",
       "Matricula;Data;Motorista;LocalAc;Custo\n12-AB-34;01-02-2024;1;A1;60\n"
       "12-AB-34;01-02-2024;9;A1;60\n",
       "Motorista: Motorista não existente!", "80"}};
  for (const auto& f : files) {
    SCOPED_TRACE(f.what);
    EXPECT_EQ(Import(f.what, f.csv).added, 1);
    EXPECT_EQ(report.str(), "linha 3, " + std::string(f.refused) + "\n");
    EXPECT_EQ(Rows(bd, "SELECT CustoTotal FROM zor_PV_Viaturas")[0][0], f.total);
    EXPECT_EQ(Import(f.what, f.csv).known, 1) << "a second run adds nothing";
  }
}

}  // namespace
}  // namespace console
