// What the cells of a file come to in a plan.

#include "exchange/import_plan_fixture.h"

namespace exchange {
namespace {

TEST_F(ImportPlanTest, WordsStandForTheNumbersOfTheirColumns) {
  const struct {
    const char* kind;
    const char* csv;
    const char* told;  // what becomes of the columns that have words
  } files_[] = {
      {"viaturas",
       "Matrícula;Combustível;Inactiva;Tacógrafo;Selo "
       "pago\n11-AA-11;Gasolina;sim;não;yes\n22-AA-22;GPL;não;S;0\n",
       "Combustivel=1 Inactiva=1 Tacografo=0 SeloPago=1 Combustivel=2 Inactiva=0 Tacografo=1 SeloPago=0 "},
      {"motoristas", "Código;Nome;Inactivo;Tipo de carta\n7;Rui;sim;C\n8;Ana;não;C+E\n",
       "TipoCartaCond=1 Inactivo=1 TipoCartaCond=7 Inactivo=0 "},
      {"apolices", "Matrícula;Validade;Modalidade;Inactiva\n12-AB-34;13-02-2025;Semestral;não\n",
       "Modalidade=1 Inactiva=0 "},
      {"multas", "Matrícula;Data;Responsabilidade\n12-AB-34;13-02-2024;sim\n", "Responsabilidade=1 "},
      {"sinistros", "Matrícula;Data;Responsável\n12-AB-34;13-02-2024;sim\n", "Responsavel=1 "},
      {"tipos-gastos", "Código;Nome;É combustível\nH;Hidrogénio;sim\n", "Combustivel=1 "},
      {"cartas", "Motorista;Classe;Validade\n1;D1;13-02-2030\n", "TipoCarta=4 "}};
  for (const auto& [kind, csv, told] : files_) {
    Read(csv, {}, kind).Check();
    EXPECT_EQ(States().find("recusada"), std::string::npos) << States();
    plan->Store("a.csv", "soma", "ana");
    std::string all;
    for (std::size_t i = 0; i < plan->size(); ++i)
      for (std::size_t column = 0; column < ColumnsOfKind(kind).size(); ++column)
        for (const char* name :
             {"Combustivel", "Inactiva", "Inactivo", "Tacografo", "SeloPago", "TipoCartaCond", "Modalidade",
              "Responsabilidade", "Responsavel", "TipoCarta"})
          if (const std::string value = plan->Values(i)[column];
              std::string_view(name) == ColumnsOfKind(kind)[column].name && !value.empty())
            all.append(name).append("=").append(value).append(" ");
    EXPECT_EQ(all, told) << kind;
  }
}

TEST_F(ImportPlanTest, CellsOfASpreadsheetAreTakenForWhatTheyAre) {
  const auto text = [](const std::string& value) {
    return "<c t='inlineStr'><is><t>" + value + "</t></is></c>";
  };
  const auto day = [](const std::string& value) { return "<c s='1'><v>" + value + "</v></c>"; };
  const auto number = [](const std::string& value) { return "<c><v>" + value + "</v></c>"; };
  const std::string error = "<c t='e'><v>#N/A</v></c>";
  const std::string formula = "<c><f>A1</f></c>";
  const std::string truth = "<c t='b'><v>1</v></c>";
  const std::string rows[] = {text("Data") + text("Hora") + text("Valor") + text("Responsabilidade"),
                              day("45322") + day("0.5") + number("60.25") + truth,
                              number("45322") + text("08:30") + number("0.00005") + number("0"),
                              text("31-01-2024") + number("0.25") + text("1.234,5") + text("não"),
                              day("45322") + text("") + number("1e20"),
                              day("45322") + text("tarde") + number("1"),
                              day("45322") + text("") + error,
                              day("45322") + text("") + formula,
                              error + text("") + number("1"),
                              day("45322") + error + number("1"),
                              number("100000") + text("") + number("1"),
                              day("45322") + text("") + number("1") + number("0.5"),
                              day("45322.75") + text("") + truth};
  const auto file = [&](std::size_t count) {
    std::string sheet;
    for (std::size_t i = 0; i < count; ++i)
      sheet += "<row>" + text(i == 0 ? "Matrícula" : "12-AB-34") + rows[i] + "</row>";
    return files.Zip(
        "a.xlsx",
        {{"xl/workbook.xml", "<w xmlns:r='u/relationships'><sheets><sheet name='F' r:id='r1'/></sheets></w>"},
         {"xl/_rels/workbook.xml.rels",
          "<R><Relationship Id='r1' Type='x/worksheet' Target='a.xml'/><Relationship Id='r2' "
          "Type='x/styles' Target='s.xml'/></R>"},
         {"xl/s.xml", "<s><cellXfs><xf numFmtId='0'/><xf numFmtId='14'/></cellXfs></s>"},
         {"xl/a.xml", "<s><sheetData>" + sheet + "</sheetData></s>"}});
  };
  const auto shown = [&] {
    std::string all;
    for (std::size_t i = 0; i < plan->size(); ++i) {
      for (const std::string& value : plan->Values(i)) all += value + "|";
      all += plan->why(i).column + (plan->why(i).column.empty() ? "" : " ") + plan->why(i).reason + "\n";
    }
    return all;
  };
  ReadFile(file(std::size(rows) - 1), {}, "multas").Check();
  EXPECT_EQ(shown(), R"(12-AB-34|31-01-2024 12:00:00|||60,25|1|
12-AB-34|31-01-2024 08:30:00|||0|0|
12-AB-34|31-01-2024 06:00:00|||1234,5|0|
12-AB-34|31-01-2024|||100000000000000000000||ValorMulta «100000000000000000000» é um número grande demais.
12-AB-34|31-01-2024 tarde|||1||Data «tarde» não é uma hora.
12-AB-34|31-01-2024|||||ValorMulta A célula tem o erro #N/A.
12-AB-34|31-01-2024|||||ValorMulta A fórmula não tem valor guardado: abra e grave o ficheiro na folha de cálculo.
12-AB-34||||1||Data A célula tem o erro #N/A.
12-AB-34||||1||Data A célula tem o erro #N/A.
12-AB-34|100000|||1||Data «100000» não é uma data.
12-AB-34|31-01-2024|||1|0.5|Responsabilidade «0.5» não é um número inteiro.
)");
  ReadFile(
      file(4),
      [](Profile& profile) {
        profile.At("ValorMulta").impliedDecimals = 2;
        profile.At("ValorMulta").turned = true;
      },
      "multas")
      .Check();
  EXPECT_EQ(shown(), R"(12-AB-34|31-01-2024 12:00:00|||-0,6025|1|Nota de crédito.
12-AB-34|31-01-2024 08:30:00|||0|0|
12-AB-34|31-01-2024 06:00:00|||-1234,5|0|Nota de crédito.
)");
  // Where the day has a time, nothing adds to it.
  ReadFile(
      file(std::size(rows)), [](Profile& profile) { EXPECT_EQ(profile.Find("Data")->pieces.size(), 1U); },
      "multas")
      .Check();
  EXPECT_EQ(plan->Values(11)[1], "31-01-2024 18:00:00");
}

}  // namespace
}  // namespace exchange
