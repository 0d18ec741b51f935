// What an import writes down about itself, and its taking back.

#include "exchange/imports/take_back.h"

#include <algorithm>
#include <fstream>

#include "exchange/import_fixture.h"
#include "exchange/imports/row_mark.h"
#include "exchange/imports/stored_rows.h"
#include "exchange/profile/import_kinds.h"
#include "exchange/table_files.h"

namespace exchange {
namespace {

class TakeBackTest : public ImportTest {
 protected:
  TakeBackTest() {
    for (const char* table : {"Companhias", "TiposManut"})
      Sql(std::string("INSERT INTO zor_PV_") + table + " (Codigo, Nome) VALUES ('X', 'x')");
  }
  ImportResult Log(const std::string& kind, const std::string& csv) {
    report.str("");
    return Log(kind, csv, report);
  }
  ImportResult Log(const std::string& kind, const std::string& csv, std::ostream& told) {
    std::istringstream file(csv);
    return ImportCsvToLog(
        bd, {.kind = kind, .name = kind + ".csv", .checksum = "soma", .who = "ana", .beforeCommit = {}}, file,
        told);
  }
  /// All that the module's tables hold.
  std::vector<Table> Everything() {
    std::vector<Table> tables;
    for (const ImportKind& kind : ImportKinds())
      tables.push_back(Rows(bd, std::string("SELECT * FROM ") + kind.table));
    return tables;
  }
  std::string Told(const TakenBack& back) {
    std::string text = std::to_string(back.removed) + " " + std::to_string(back.gone);
    for (const KeptRow& row : back.kept)
      text += "; " + std::to_string(row.line) + " " + row.table + " " + row.key + " " + row.why;
    return text;
  }
};

TEST_F(TakeBackTest, ARowOfEveryKindComesAndGoes) {
  const struct {
    const char* kind;
    const char* csv;
  } files[] = {{"viaturas", "Matricula;Marca;KmInicial\nNN-00-AA;REN;7\n"},
               {"motoristas", "Codigo;Nome\nN;Rui\n"},
               {"cartas", "Motorista;TipoCarta;DataValidade\n1;3;01-01-2031\n1;4;01-01-2031\n"},
               {"gastos", "Matricula;Data;TipoGasto;Qtd;Custo;Km\n12-AB-34;01-02-2024;GASOLEO;40;60;10500\n"},
               {"apolices", "Matricula;Validade;Premio\n12-AB-34;01-02-2025;100\n"},
               {"revisoes", "Matricula;Data;Custo\n12-AB-34;01-02-2024;50\n"},
               {"inspecoes", "Matricula;Data;Custo\n12-AB-34;01-02-2024;30\n"},
               {"multas", "Matricula;Data;ValorMulta\n12-AB-34;01-02-2024;60\n"},
               {"sinistros", "Matricula;Data;Custo\n12-AB-34;01-02-2024;60\n"},
               {"acessorios", "Matricula;Data;Custo\n12-AB-34;01-02-2024;20\n"},
               {"marcas", "Codigo;Nome\nN;novo\n"},
               {"modelos", "Codigo;Nome\nN;novo\n"},
               {"categorias", "Codigo;Nome\nN;novo\n"},
               {"departamentos", "Codigo;Nome\nN;novo\n"},
               {"companhias", "Codigo;Nome\nN;novo\n"},
               {"tipos-gastos", "Codigo;Nome;Combustivel;CustoUnit\nN;novo;1;1,5\n"},
               {"tipos-manutencao", "Codigo;Nome\nN;novo\n"},
               {"tipos-seguro", "Codigo;Nome\nN;novo\n"},
               {"tipos-acessorios", "Codigo;Nome\nN;novo\n"},
               {"viagens", "Codigo;Nome\nN;novo\n"}};
  ASSERT_EQ(std::size(files), ImportKinds().size());
  Sql("UPDATE zor_PV_Viaturas SET CustoTotal=0, CustoMedioKmT=0, CustoMedioKmC=0, Media=0");
  const auto before = Everything();
  for (const auto& file : files) {
    SCOPED_TRACE(file.kind);
    const ImportResult result = Log(file.kind, file.csv);
    EXPECT_EQ(report.str(), "");
    EXPECT_NE(Everything(), before);
    EXPECT_EQ(Log(file.kind, file.csv).number, 0) << "nothing new is nothing to take back";
    EXPECT_EQ(Told(TakeBackImport(bd, result.number)), std::to_string(result.added) + " 0");
    EXPECT_EQ(Everything(), before);
  }
}

TEST_F(TakeBackTest, WhatWasImportedIsWrittenDown) {
  const ImportResult result =
      Log("gastos",
          "Matricula;Data;TipoGasto;Custo\n12-AB-34;01-02-2024;PORTAGEM;5\nX;01-02-2024;PORTAGEM;5\n"
          "12-AB-34;02-02-2024;PORTAGEM;6\n");
  EXPECT_EQ(result.number, 1);
  Log("marcas", "Codigo;Nome\nN;novo\n");
  const std::string imports =
      "SELECT Numero, Momento, Quem, Tipo, Ficheiro, Perfil, Soma, Linhas, Anulada FROM parvel_importacoes";
  EXPECT_EQ(Rows(bd, imports),
            (Table{{"1", "15-03-2024 10:30:00", "ana", "gastos", "gastos.csv", "", "soma", "2", "NULL"},
                   {"2", "15-03-2024 10:30:00", "ana", "marcas", "marcas.csv", "", "soma", "1", "NULL"}}));
  const std::string rows =
      "SELECT Importacao, Ordem, Linha, Tabela, Chave, Transaccao FROM parvel_importacoes_linhas";
  EXPECT_EQ(Rows(bd, rows), (Table{{"1", "1", "2", "zor_PV_Gastos", "1", "NULL"},
                                   {"1", "2", "4", "zor_PV_Gastos", "2", "NULL"},
                                   {"2", "1", "2", "zor_PV_Marcas", "N", "NULL"}}));
  const auto listed = [&] {
    std::string text;
    for (const ImportEntry& entry : ListImports(bd))
      text += std::to_string(entry.number) + " " + entry.when.ToText() + " " + entry.who + " " + entry.kind +
              " " + entry.file + " " + entry.checksum + " " + std::to_string(entry.rows) + " " +
              (entry.takenBack ? entry.takenBack->ToText() : "-") + ";";
    return text;
  };
  EXPECT_EQ(listed(),
            "2 15-03-2024 10:30:00 ana marcas marcas.csv soma 1 -;1 15-03-2024 10:30:00 ana gastos "
            "gastos.csv soma 2 -;");
  EXPECT_EQ(ImportedBefore(bd, "soma")->number, 2);
  EXPECT_THROW(TakeBackImport(bd, 2, [] { throw std::runtime_error("cheio"); }), std::runtime_error);
  EXPECT_EQ(Rows(bd, rows).size(), 3U) << "what fails takes nothing back";
  TakeBackImport(bd, 2);
  EXPECT_EQ(listed(),
            "2 15-03-2024 10:30:00 ana marcas marcas.csv soma 1 15-03-2024 10:30:00;1 15-03-2024 10:30:00 "
            "ana gastos gastos.csv soma 2 -;");
  EXPECT_EQ(Rows(bd, rows).size(), 2U);
  EXPECT_EQ(ImportedBefore(bd, "soma")->number, 1);
  EXPECT_FALSE(ImportedBefore(bd, "outra"));
  EXPECT_THROW(TakeBackImport(bd, 2), std::runtime_error);
  EXPECT_THROW(TakeBackImport(bd, 3), std::runtime_error);
  std::ofstream full("/dev/full");
  EXPECT_THROW(Log("marcas", "Codigo;Nome\nO;outra\nO'X;outra\n", full), std::runtime_error)
      << "nobody is told what is refused";
  EXPECT_TRUE(Rows(bd, "SELECT Codigo FROM zor_PV_Marcas WHERE Codigo='O'").empty());
}

TEST_F(TakeBackTest, WhatWasChangedUsedOrRemovedSinceIsTold) {
  const long expenses =
      Log("gastos",
          "Matricula;Data;TipoGasto;Qtd;Custo;Km\n12-AB-34;01-02-2024;GASOLEO;40;60;10500\n"
          "12-AB-34;02-02-2024;GASOLEO;40;61;10900\n12-AB-34;03-02-2024;GASOLEO;40;62;11300\n")
          .number;
  Sql("UPDATE zor_PV_Gastos SET Custo=59 WHERE Km=10500");
  Sql("DELETE FROM zor_PV_Gastos WHERE Km=10900");
  EXPECT_EQ(Told(TakeBackImport(bd, expenses)), "1 1; 2 zor_PV_Gastos 1 foi alterada depois de importada");
  EXPECT_EQ(Rows(bd, "SELECT CustoTotal, KmActual FROM zor_PV_Viaturas"), (Table{{"59", "10500"}}));

  const long makes = Log("marcas", "Codigo;Nome\nA;a\nB;b\nC;c\nD;d\n").number;
  Sql("UPDATE zor_PV_Marcas SET Nome='z' WHERE Codigo='A'");
  Sql("UPDATE zor_PV_Viaturas SET Marca='B'");
  Sql("DELETE FROM zor_PV_Marcas WHERE Codigo='C'");
  EXPECT_EQ(Told(TakeBackImport(bd, makes)),
            "1 1; 3 zor_PV_Marcas B está em uso; 2 zor_PV_Marcas A foi alterada depois de importada");
  EXPECT_EQ(Rows(bd, "SELECT Codigo FROM zor_PV_Marcas WHERE Codigo<'E'"), (Table{{"A"}, {"B"}}));
}

TEST_F(TakeBackTest, AnyChangeOfARowIsSeenButThatOfItsFigures) {
  const std::string csv = "Matricula;Obs;NoMotor;NoChassis\nN;ab;mm;c\n";
  long number = Log("viaturas", csv).number;
  const auto back = [&](const std::string& column, const std::string& change) {
    Sql("UPDATE zor_PV_Viaturas SET " + change + " WHERE Matricula='N'");
    const TakenBack result = TakeBackImport(bd, number);
    Sql("DELETE FROM zor_PV_Viaturas WHERE Matricula='N'");
    number = Log("viaturas", csv).number;
    return column + (result.kept.empty() ? " -;" : ";");
  };
  std::string seen;
  zorCrmParvel::RecordsetRef rows;
  bd->AbrirLeitura("", "SELECT * FROM zor_PV_Viaturas WHERE Matricula='N'", rows);
  const std::vector<platform::FieldInfo> fields = rows->FieldList();
  rows->Close();
  for (const platform::FieldInfo& field : fields) {
    if (field.name == "Matricula") continue;
    const bool date = field.type == platform::FieldType::kDate;
    seen += back(field.name, field.name + (date ? "='2001-02-03'" : "='1'"));
  }
  EXPECT_EQ(
      seen,
      "Marca;Modelo;Responsavel;Categoria;Departamento;KmInicial;KmActual -;DataKmInicial;CustoMedioKmC -;"
      "DataMatricula;AnoMatricula;NoMotor;Cilindrada;CompLeasing;NoContrato;ValContrato;ValorInicial;"
      "ValorResidual;Mensalidade;CustoMedioKmT -;QtdInicial;CustoTotal -;Obs;Media -;NoChassis;Combustivel;"
      "DataPrxRev;DataPrxInsp;KmPrxRev;Inactiva;Tacografo;DtDescarga;DataSelo;SeloPago;");
  EXPECT_EQ(back("moved", "NoMotor=NoChassis, NoChassis=NoMotor"), "moved;");
  EXPECT_EQ(back("null", "Cilindrada=NULL"), "null;");
  EXPECT_EQ(back("shifted", "NoMotor='m', Cilindrada='m'"), "shifted;");
}

TEST_F(TakeBackTest, AThousandRowsAndMoreAreWrittenDownOnceEach) {
  std::string csv = "Matricula;Data;TipoGasto;Custo\n";
  for (int i = 1; i <= 2300; ++i) csv += "12-AB-34;01-02-2024;PORTAGEM;" + std::to_string(i) + "\n";
  const long number = Log("gastos", csv).number;
  EXPECT_EQ(Rows(bd, "SELECT COUNT(*), MIN(Linha), MAX(Linha), MAX(Ordem) FROM parvel_importacoes_linhas"),
            (Table{{"2300", "2", "2301", "2300"}}));
  EXPECT_EQ(ListImports(bd)[0].rows, 2300);
  EXPECT_EQ(Rows(bd, "SELECT COUNT(*) FROM zor_PV_Gastos"), (Table{{"2300"}}));
  EXPECT_EQ(Told(TakeBackImport(bd, number)), "2300 0");
  EXPECT_TRUE(Rows(bd, "SELECT Gst_Id FROM zor_PV_Gastos").empty());
}

TEST_F(TakeBackTest, NoMoreThanAThousandRowsAreHeldBack) {
  const auto recording = platform::MakeRef<RecordingDataAccess>(bd);
  ImportEntry entry;
  entry.when = host.clock;
  ImportLog log(recording, entry);
  recording->statements.clear();
  for (int i = 0; i < 1000; ++i) log.Add(ImportedRow());
  EXPECT_TRUE(recording->statements.empty());
  log.Add(ImportedRow());
  EXPECT_EQ(recording->statements.size(), 1U);
}

TEST_F(TakeBackTest, EventsGoToTheDatabaseTogether) {
  const auto recording = platform::MakeRef<RecordingDataAccess>(bd);
  ImportLog log(bd, ImportEntry());
  StoredRows rows(recording, *KindOf("multas"), log);
  const auto target = MakeImportTarget("multas", rows.through());
  for (int i = 1; i <= 10; ++i) {
    ImportRow row(target->Columns());
    row.at(0).text = "12-AB-34";
    row.at(1).date = platform::Date::FromParts(2024, 2, i);
    EXPECT_EQ(target->Store(row), Outcome::kAdded);
    rows.Add("", i, "");
    Rows(rows.through(), "SELECT Matricula FROM zor_PV_Viaturas");
  }
  EXPECT_TRUE(Rows(bd, "SELECT Id FROM zor_PV_Multas").empty()) << "reads of other tables send nothing";
  EXPECT_EQ(Rows(rows.through(), "SELECT Id FROM zor_PV_Multas").size(), 10U) << "those of its own do";
  EXPECT_EQ(std::count_if(recording->statements.begin(), recording->statements.end(),
                          [](const std::string& one) { return one.find("WHERE 1=0") != std::string::npos; }),
            1);
  rows.Finish();
  EXPECT_EQ(log.rows(), 10);
}

TEST_F(TakeBackTest, EveryUseKeepsACode) {
  const struct {
    const char* kind;
    const char* csv;
    const char* use;  // a row that names it
  } uses[] = {{"viaturas", "Matricula\nN\n", "zor_PV_Gastos (Matricula) VALUES ('N')"},
              {"viaturas", "Matricula\nN\n", "zor_PV_Seguros (Matricula) VALUES ('N')"},
              {"viaturas", "Matricula\nN\n", "zor_PV_Revisoes (Matricula) VALUES ('N')"},
              {"viaturas", "Matricula\nN\n", "zor_PV_Inspecoes (Matricula) VALUES ('N')"},
              {"viaturas", "Matricula\nN\n", "zor_PV_Multas (Matricula) VALUES ('N')"},
              {"viaturas", "Matricula\nN\n", "zor_PV_Sinistros (Matricula) VALUES ('N')"},
              {"viaturas", "Matricula\nN\n", "zor_PV_Acessorios (Matricula) VALUES ('N')"},
              {"motoristas", "Codigo\nN\n",
               "zor_CartasCond (Motorista, TipoCarta, DataValidade) VALUES ('N', 1, '2031.01.01')"},
              {"motoristas", "Codigo\nN\n", "zor_PV_Gastos (Motorista) VALUES ('N')"},
              {"motoristas", "Codigo\nN\n", "zor_PV_Multas (Motorista) VALUES ('N')"},
              {"motoristas", "Codigo\nN\n", "zor_PV_Sinistros (Motorista) VALUES ('N')"},
              {"modelos", "Codigo\nN\n", "zor_PV_Viaturas (Matricula, Modelo) VALUES ('Z', 'N')"},
              {"categorias", "Codigo\nN\n", "zor_PV_Viaturas (Matricula, Categoria) VALUES ('Z', 'N')"},
              {"departamentos", "Codigo\nN\n", "zor_PV_Viaturas (Matricula, Departamento) VALUES ('Z', 'N')"},
              {"companhias", "Codigo\nN\n", "zor_PV_Viaturas (Matricula, CompLeasing) VALUES ('Z', 'N')"},
              {"companhias", "Codigo\nN\n", "zor_PV_Seguros (Companhia) VALUES ('N')"},
              {"tipos-seguro", "Codigo\nN\n", "zor_PV_Seguros (TipoSeguro) VALUES ('N')"},
              {"tipos-manutencao", "Codigo\nN\n", "zor_PV_Revisoes (TipoManut) VALUES ('N')"},
              {"tipos-acessorios", "Codigo\nN\n", "zor_PV_Acessorios (TipoAcessorio) VALUES ('N')"},
              {"tipos-gastos", "Codigo\nN\n", "zor_PV_Gastos (TipoGasto) VALUES ('N')"},
              {"viagens", "Codigo\nN\n", "zor_PV_Gastos (Viagem) VALUES ('N')"}};
  for (const auto& use : uses) {
    SCOPED_TRACE(use.use);
    const long number = Log(use.kind, use.csv).number;
    Sql(std::string("INSERT INTO ") + use.use);
    EXPECT_EQ(Told(TakeBackImport(bd, number)).substr(0, 3), "0 0");
    Sql(std::string("DELETE FROM ") + std::string(use.use).substr(0, std::string(use.use).find(' ')));
    Sql(std::string("DELETE FROM ") + KindOf(use.kind)->table + " WHERE " + KindOf(use.kind)->key + "='N'");
  }
}

TEST(Checksum, TellsWhatAFileHolds) {
  const TableFiles files;
  EXPECT_EQ(ChecksumOfFile(files.Put("vazio", "")), "cbf29ce484222325");
  EXPECT_EQ(ChecksumOfFile(files.Put("a", "a")), "af63dc4c8601ec8c");
  std::string large(70000, 'x');
  const std::string sum = ChecksumOfFile(files.Put("b", large));
  for (const std::size_t at : {0U, 65535U, 65536U, 69999U}) {
    large[at] = 'y';
    EXPECT_NE(ChecksumOfFile(files.Put("c", large)), sum) << at;
    large[at] = 'x';
  }
  EXPECT_THROW(ChecksumOfFile(files.Path("falta")), std::runtime_error);
}

}  // namespace
}  // namespace exchange
