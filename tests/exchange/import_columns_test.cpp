// Every column of every file: where its value goes, and what stands there without it.

#include <algorithm>
#include <map>

#include "exchange/import_fixture.h"
#include "exchange/profile/import_kinds.h"
#include "support/whole_text.h"

namespace exchange {
namespace {

class ImportColumnsTest : public ImportTest {
 protected:
  ImportColumnsTest() {
    for (const char* table : {"Modelos", "Categorias", "Departamentos", "Companhias", "TiposManut",
                              "TiposSeguro", "TiposAcessorios", "Viagens"})
      Sql(std::string("INSERT INTO zor_PV_") + table + " (Codigo, Nome) VALUES ('X', 'x')");
  }
};

// Numbers and dates differ from column to column. The database's own id comes first in the rows of events.
const struct {
  const char* what;
  std::string stored;     // where its row is
  std::size_t needed;     // the first columns, which must be there
  std::string columns;    // all of them
  std::string values;     // go into these columns, and stand there afterwards
  std::string otherwise;  // the whole row that follows from the first columns alone
} kKinds[] = {
    {"viaturas", "zor_PV_Viaturas WHERE Matricula='P'", 1,
     "Matricula,Marca,Modelo,Responsavel,Categoria,Departamento,KmInicial,KmActual,DataKmInicial,"
     "DataMatricula,AnoMatricula,NoMotor,Cilindrada,CompLeasing,NoContrato,ValContrato,ValorInicial,"
     "ValorResidual,Mensalidade,QtdInicial,Obs,NoChassis,Combustivel,DataPrxRev,DataPrxInsp,KmPrxRev,"
     "Inactiva,Tacografo,DtDescarga,DataSelo,SeloPago",
     "P;REN;X;Rui;X;X;11;12;01-01-2013;02-01-2014;2015;motor;1600;X;N9;03-01-2016;17,5;18,5;19,5;20,5;"
     "nota;chassis;2;04-01-2021;05-01-2022;23;1;1;06-01-2024;07-01-2025;1",
     "P;;;;;;0;0;15-03-2024;0;15-03-2024;0;;;;;NULL;0;0;0;0;0;0;;0;;0;NULL;NULL;9999999;0;0;15-03-2024;"
     "31-03-2024;False"},
    {"motoristas", "zor_Funcionarios WHERE Codigo='2'", 1,
     "Codigo,Nome,Morada,Localidade,CodPostal,NIF,DataNasc,BI,DataBI,EmissaoBI,Telefone,Telemovel,Email,"
     "Passaporte,DataPassa,ValidadePassa,CartaoCid,DataCartaoCid,ValCartaoCid,CartaCond,DataCartaCond,"
     "ValCartaCond,TipoCartaCond,DGV,LocalPassa,Obs,LocalCid,DataValBI,DtInicioCartaoCondutor,"
     "DtFimCartaoCondutor,DtDescarga,NoCartaoCondutor,EmissoraCartaoCondutor,Inactivo",
     "2;Zé;rua;Faro;8000;nif;01-01-1970;bi;02-01-2001;arq;tel;mov;mail;pas;03-01-2002;04-01-2003;cc;"
     "05-01-2004;06-01-2005;carta;07-01-2006;08-01-2007;9;dgv;lp;nota;lc;09-01-2008;10-01-2009;11-01-2010;"
     "12-01-2011;ncc;ecc;1",
     "2;;;;;;00:00:00;;00:00:00;;;;;;NULL;NULL;;00:00:00;00:00:00;;00:00:00;00:00:00;0;;;;;00:00:00;"
     "00:00:00;00:00:00;00:00:00;;;0"},
    {"gastos", "zor_PV_Gastos", 4, "Matricula,Data,TipoGasto,Custo,Motorista,Viagem,Qtd,ValorUn,Km,Obs",
     "12-AB-34;01-02-2024 08:30:15;PORTAGEM;70;1;X;40,5;1,7;10500;nota",
     "12-AB-34;;;01-02-2024 08:30:15;;0;0;0;70;PORTAGEM"},
    {"apolices", "zor_PV_Seguros", 2,
     "Matricula,Validade,Companhia,TipoSeguro,Apolice,Premio,Franquia,Modalidade,DataInicio,Inactiva,"
     "Coberturas",
     "12-AB-34;01-02-2025;X;X;A1;300,5;20,5;1;02-02-2024;1;tudo", "12-AB-34;;;;01-02-2025;0;0;0;00:00:00;0;"},
    {"revisoes", "zor_PV_Revisoes", 2, "Matricula,Data,TipoManut,Km,Custo,Obs",
     "12-AB-34;01-02-2024;X;10500;99,5;nota", "12-AB-34;;;01-02-2024;0;0"},
    {"inspecoes", "zor_PV_Inspecoes", 2, "Matricula,Data,Km,Custo,Obs", "12-AB-34;01-02-2024;10500;30,5;nota",
     "12-AB-34;;01-02-2024;0;0"},
    {"multas", "zor_PV_Multas", 2, "Matricula,Data,Motorista,ValorMulta,Responsabilidade,Obs",
     "12-AB-34;01-02-2024;1;60,5;1;nota", "12-AB-34;;;01-02-2024;0;0"},
    {"sinistros", "zor_PV_Sinistros", 2, "Matricula,Data,Motorista,LocalAc,Responsavel,Custo,Obs",
     "12-AB-34;01-02-2024;1;A'1;1;60,5;nota", "12-AB-34;;;01-02-2024;;0;0"},
    {"acessorios", "zor_PV_Acessorios", 2,
     "Matricula,Data,TipoAcessorio,Marca,Modelo,Qtd,KmInicial,KmFinal,Custo,DataVal,Obs",
     "12-AB-34;01-02-2024;X;marca;modelo;1,5;2,5;3,5;4,5;05-02-2024;nota",
     "12-AB-34;;;01-02-2024;;;0;0;0;0;NULL"},
    {"cartas", "zor_CartasCond", 3, "Motorista,TipoCarta,DataValidade", "1;9;01-02-2025", "1;9;01-02-2025"},
    {"tipos-gastos", "zor_PV_TiposGastos WHERE Codigo='N'", 1, "Codigo,Nome,Combustivel,CustoUnit",
     "N;novo;1;1,5", "N;;0;0"},
    {"viagens", "zor_PV_Viagens WHERE Codigo='N'", 1, "Codigo,Nome", "N;novo", "N;"}};

/// The first `count` of the pieces between marks.
std::string First(std::size_t count, const std::string& text, char mark) {
  std::size_t end = 0;
  while (count-- > 0 && end != std::string::npos) end = text.find(mark, end + 1);
  return text.substr(0, end);
}

TEST_F(ImportColumnsTest, EveryColumnGoesToItsOwnAndWhatIsLeftOutIsSettled) {
  for (const auto& kind : kKinds) {
    const bool event = KindOf(kind.what)->numbered;
    for (const bool full : {true, false}) {
      std::string csv = full ? kind.columns : First(kind.needed, kind.columns, ',');
      std::replace(csv.begin(), csv.end(), ',', ';');
      csv += "\n" + (full ? kind.values : First(kind.needed, kind.values, ';')) + "\n";
      SCOPED_TRACE(std::string(kind.what) + "\n" + csv);
      EXPECT_EQ(Import(kind.what, csv).added, 1) << report.str();
      const Table rows = Rows(bd, "SELECT " + (full ? kind.columns : "*") + " FROM " + kind.stored);
      ASSERT_EQ(rows.size(), 1U);
      std::string row;
      for (std::size_t i = event && !full ? 1 : 0; i < rows[0].size(); ++i)
        row += (row.empty() ? "" : ";") + (rows[0][i] == "True" ? "1" : rows[0][i]);
      EXPECT_EQ(row, full ? kind.values : kind.otherwise);
      EXPECT_EQ(Import(kind.what, csv).known, 1) << "a second run adds nothing";
      Sql("DELETE FROM " + kind.stored);
    }
  }
}

/// The fields that a row must have.
std::map<std::string, std::string> Needed(const std::string& what) {
  if (what == "viaturas") return {{"Matricula", "P"}};
  if (what == "motoristas") return {{"Codigo", "2"}};
  if (what == "apolices") return {{"Matricula", "12-AB-34"}, {"Validade", "01-02-2024"}};
  if (what == "cartas") return {{"Motorista", "1"}, {"TipoCarta", "3"}, {"DataValidade", "01-02-2025"}};
  if (what == "tipos-gastos" || what == "viagens") return {{"Codigo", "N"}};
  if (what != "gastos") return {{"Matricula", "12-AB-34"}, {"Data", "01-02-2024"}};
  return {{"Matricula", "12-AB-34"}, {"Data", "01-02-2024"}, {"TipoGasto", "PORTAGEM"}};
}

/// What is tried in a column.
std::vector<std::string> Probes(const ImportColumn& column) {
  const auto limit = static_cast<std::size_t>(column.limit);
  switch (column.kind) {
    case ColumnKind::kText:
      return {"", "O'R", "N", "X", std::string(limit, 'x'), std::string(limit + 1, 'x')};
    case ColumnKind::kNumber:
      return {"", "2,5", "-1", "0", "x", "99999999999999999"};
    case ColumnKind::kInteger:
      return {"",   "-1",   "0",    "1",    "2",    "3",     "4",      "9",
              "10", "1950", "1951", "2023", "2024", "99999", "-32769", "2020,5"};
    default:
      return {"", "01-02-2025", "31-12-1752", "257-01-2024", "08:00", "00:00:00", "x"};
  }
}

TEST_F(ImportColumnsTest, EveryColumnTakesAndRefusesWhatIsWrittenDown) {
  std::string text;
  for (const auto& kind : kKinds) {
    const auto target = MakeImportTarget(kind.what, bd);
    for (const ImportColumn& column : target->Columns()) {
      text += kind.what + (" " + std::string(column.name)) + " " + std::to_string(column.limit) +
              (column.required ? " obrigatório:" : ":");
      for (const std::string& value : Probes(column)) {
        std::map<std::string, std::string> fields = Needed(kind.what);
        fields[column.name] = value;
        std::string header;
        std::string row;
        for (const auto& [name, field] : fields) {
          header.append(name) += ";";
          row.append(field) += ";";
        }
        // The same row once more: what was looked up is remembered as it was.
        const ImportResult result =
            Import(kind.what, header.append("\n").append(row).append("\n").append(row));
        text += " «" + value.substr(0, 12) + "» " + std::to_string(result.added) +
                std::to_string(result.known) + std::to_string(result.refused);
        if (result.refused > 0) text += " " + report.str().substr(0, report.str().find('\n'));
        for (const auto& stored : Rows(bd, "SELECT " + std::string(column.name) + " FROM " + kind.stored))
          if (result.added > 0) text += " = " + stored[0];
        Sql("DELETE FROM " + kind.stored);
      }
      text += "\n";
    }
  }
  ExpectWholeText(PARVEL_SOURCE_DIR "/tests/exchange/columns.txt", text);
}

TEST_F(ImportColumnsTest, ARowIsRefusedForWhatItsFieldsComeToTogether) {
  Import("gastos",
         "Matricula;Data;TipoGasto;Qtd;ValorUn\n12-AB-34;01-02-2024;PORTAGEM;99999999999;99999999999\n");
  EXPECT_EQ(report.str(), "linha 2, Custo: O produto da quantidade pelo valor unitário não cabe.\n");
  Import("cartas", "Motorista;TipoCarta;DataValidade\n1;3;14-03-2024\n1;3;15-03-2024\n");
  EXPECT_EQ(report.str(), "linha 2, DataValidade: A Data de Validade não pode ser inferior à data dia!\n");
  Import("cartas", "Motorista;TipoCarta;DataValidade\n77;3;15-03-2031\n");
  EXPECT_EQ(report.str(), "linha 2, Motorista: Motorista não existente!\n");
  Import("viaturas", "Matricula;Obs\nP;a;b\n");
  EXPECT_EQ(report.str(), "linha 2: A linha tem mais campos do que a primeira.\n");
}

TEST_F(ImportColumnsTest, TheVehiclesFiguresFollowWhatWasAdded) {
  const struct {
    const char* what;
    const char* csv;
    const char* total;
  } files[] = {{"revisoes", "Matricula;Data;Custo\n12-AB-34;01-02-2024;100\n", "100"},
               {"inspecoes", "Matricula;Data;Custo\n12-AB-34;01-02-2024;30\n", "30"},
               {"acessorios", "Matricula;Data;Custo\n12-AB-34;01-02-2024;50\n", "80"},
               {"multas", "Matricula;Data;ValorMulta\n12-AB-34;01-02-2024;60\n", "80"},
               {"sinistros", "Matricula;Data;Custo\n12-AB-34;01-02-2024;60\n", "80"},
               {"revisoes", "Matricula;Data;Custo\n12-AB-34;02-02-2024;20\n", "200"}};
  for (const auto& f : files) {
    SCOPED_TRACE(f.what);
    Import(f.what, f.csv);
    EXPECT_EQ(Rows(bd, "SELECT CustoTotal FROM zor_PV_Viaturas")[0][0], f.total);
  }
  EXPECT_EQ(Rows(bd, "SELECT CustoMedioKmT, Marca FROM zor_PV_Viaturas"), (Table{{"0,02", "REN"}}));
}

}  // namespace
}  // namespace exchange
