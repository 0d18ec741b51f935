// What a terminal shows, whole: the commands of sessions.txt, one after the other on one fleet.

#include <fstream>
#include <iomanip>

#include "console/program_fixture.h"
#include "support/files.h"
#include "support/whole_text.h"

namespace console {
namespace {

constexpr const char* kText = PARVEL_SOURCE_DIR "/tests/console/sessions.txt";

/// Files that the commands name.
const std::pair<const char*, const char*> kFiles[] = {
    {"marcas.csv", "Codigo;Nome\nREN;Renault\nMAN;MAN\n"},
    {"categorias.csv", "Codigo;Nome\nLIG;Ligeiros\nPES;Pesados\n"},
    {"departamentos.csv", "Codigo;Nome\nVEN;Vendas\nOBR;Obras\n"},
    {"tipos.csv",
     "Codigo;Nome;Combustivel;CustoUnit\nGASOLEO;Gasóleo;1;1,6\nPORTAGEM;Portagens;0;0\nAGUA;Água;;\n"},
    {"seguros.csv", "Codigo;Nome\nTR;Todos os riscos\n"},
    {"viaturas.csv",
     "Matricula;Marca;Categoria;Departamento;Responsavel;KmInicial;DataKmInicial;DataMatricula;AnoMatricula;"
     "ValContrato;Mensalidade;Combustivel;DataPrxRev;KmPrxRev;DtDescarga;DataSelo;SeloPago;Inactiva;"
     "QtdInicial\n"
     "10-AA-10;REN;LIG;VEN;01;10000;01-01-2024;05-03-2020;2020;31-12-2024;250,5;0;01-06-2024;30000;01-01-"
     "2024;"
     "31-03-2024;1;0;5\n"
     "20-BB-20;REN;LIG;OBR;;500;01-01-2024;07-08-2021;2021;;;1;;;01-01-2024;31-08-2024;1;;\n"
     "30-CC-30;MAN;PES;OBR;02;200000;01-01-2024;09-10-2019;2019;;;0;;;01-01-2024;31-10-2024;1;1;\n"
     "40-DD-40;ZZZ;;;;0;01-01-2024;01-01-2020;2020;;;0;;;01-01-2024;31-01-2024;1;0;\n"},
    {"motoristas.csv",
     "Codigo;Nome;Telemovel;Obs\n01;Ana Silva;912345678;\n02;Rui Costa;;conhece a Ana Silva\n03;Eva;;\n"},
    {"cartas.csv", "Motorista;TipoCarta;DataValidade\n01;1;01-01-2090\n01;3;01-01-2091\n"},
    {"gastos.csv",
     "Matricula;Data;TipoGasto;Motorista;Qtd;ValorUn;Km;Obs\n"
     "10-AA-10;05-01-2024 "
     "08:00;GASOLEO;01;40;1,6;10500;cheio\n10-AA-10;20-01-2024;GASOLEO;01;42,5;1,65;11100;\n"
     "10-AA-10;10-02-2024;GASOLEO;02;41;1,62;11650;\n10-AA-10;11-02-2024;GASOLEO;02;90;1,9;11700;\n"
     "10-AA-10;02-03-2024;PORTAGEM;01;1;12,35;0;A1\n10-AA-10;02-03-2024;PORTAGEM;01;1;12,35;0;A1\n"
     "20-BB-20;15-01-2024;GASOLEO;02;30;1,7;900;\n20-BB-20;01-03-2024;GASOLEO;02;33;1,7;1400;\n"
     "30-CC-30;10-01-2024;GASOLEO;02;300;1,5;201000;\n30-CC-30;10-02-2024;GASOLEO;02;310;1,5;202000;\n"
     "99-ZZ-99;10-01-2024;GASOLEO;02;300;1,5;201000;\n30-CC-30;10-02-2023;GASOLEO;02;200;1,5;202500;\n"},
    {"apolices.csv",
     "Matricula;DataInicio;Validade;TipoSeguro;Apolice;Premio\n10-AA-10;01-01-2024;31-12-2024;TR;A1;366\n"
     "20-BB-20;01-02-2024;31-01-2025;TR;A2;200\n"},
    {"revisoes.csv", "Matricula;Data;Km;Custo\n10-AA-10;25-02-2024;11800;180,5\n"},
    {"inspecoes.csv", "Matricula;Data;Km;Custo\n20-BB-20;25-02-2024;1300;31,2\n"},
    {"multas.csv", "Matricula;Data;Motorista;ValorMulta\n10-AA-10;26-02-2024;01;60\n"},
    {"sinistros.csv", "Matricula;Data;Motorista;LocalAc;Custo\n20-BB-20;27-02-2024;02;Faro;750\n"},
    {"extracto.csv",
     "Matrícula;Data;Produto;Litros;Valor c/ IVA;Odómetro\n10AA10;13/03/2024;Diesel "
     "Plus;45,20;75,94;12500\n10AA10;14/03/2024;Diesel Plus;40;70;12400\nZZ-99-ZZ;15/03/2024;Diesel "
     "Plus;10;17;900\nTotal;;;;162,95;\n"},
    {"acessorios.csv",
     "Matricula;Data;Qtd;KmInicial;KmFinal;Custo\n30-CC-30;28-02-2024;4;200000;202000;1200\n"}};

class SessionsTest : public ProgramFixture {
 protected:
  SessionsTest() {
    for (const auto& [name, text] : kFiles) std::ofstream(File(name)) << text;
  }
  std::string Shown(std::string text, const char* before) const {
    const std::string here = File("");
    for (std::size_t at; (at = text.find(here)) != std::string::npos;)
      text.replace(at, here.size(), "PASTA/");
    std::string lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines += before + line + "\n";
    return lines;
  }
  /// Runs a line of words, those with blanks in quotes. What stands behind "> " is the file that the output
  /// goes to.
  std::string Run(std::string line) {
    for (std::size_t at; (at = line.find("PASTA/")) != std::string::npos;) line.replace(at, 6, File(""));
    std::istringstream words(line);
    std::vector<std::string> arguments;
    for (std::string word; words >> std::quoted(word) && word != ">";) arguments.push_back(word);
    const int code = OnDatabase(arguments);
    if (std::string file; words >> file) {
      std::ofstream(file) << out.str();
      out.str("");
    }
    return Shown(out.str(), "") + Shown(err.str(), "! ") +
           (code == kDone ? "" : "[" + std::to_string(code) + "]\n");
  }
};

TEST_F(SessionsTest, EachCommandShowsWhatItShould) {
  std::istringstream session(testing_support::Contents(kText));
  std::string text;
  for (std::string line; std::getline(session, line);) {
    if (line.starts_with("$ ")) text += line + "\n" + Run(line.substr(2)) + "\n";
    if (line.starts_with("= ")) text += line + "\n\n";
    if (line.starts_with("< "))
      text += line + "\n" + Shown(testing_support::Contents(File(line.substr(8))), "") + "\n";
  }
  testing_support::ExpectWholeText(kText, text);
}

}  // namespace
}  // namespace console
