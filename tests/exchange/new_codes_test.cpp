// Codes that a file names and the database lacks.

#include "exchange/import_plan_fixture.h"

namespace exchange {
namespace {

TEST_F(ImportPlanTest, NewDriversAreNumberedAfterTheHighestThatIsANumber) {
  for (const char* code : {"007", "A99", "9123456789", "12-3"})
    Sql(std::string("INSERT INTO zor_Funcionarios (Codigo, Nome) VALUES ('") + code + "', 'de " + code +
        "')");
  Read(
      "Matrícula;Data;Tipo;Valor;Motorista\n12-AB-34;20-01-2024;PORTAGEM;5;Berta Lopes\n"
      "12-AB-34;21-01-2024;PORTAGEM;5;Vasco Dias\n");
  std::string codes;
  for (const NewCode& code : plan->UnknownCodes()) codes += code.code + " " + code.name + ";";
  EXPECT_EQ(codes, "008 Berta Lopes;009 Vasco Dias;");
}

TEST_F(ImportPlanTest, CodesThatLackAreThoseOfEachColumnsTable) {
  std::string all;
  for (const ImportKind& kind : ImportKinds()) {
    std::string names = kind.owner;
    std::string values = "12-AB-34";
    for (const CodeColumn& code : kind.codes) {
      names += std::string(";") + code.column;
      values += std::string(";Sem ") + code.column;
    }
    if (kind.codes.empty()) continue;
    for (const auto& [column, value] : {std::pair{kind.date, "01-02-2024"}, std::pair{kind.amount, "10"},
                                        std::pair{"Classe", "C"}, std::pair{"Validade", "01-02-2030"}}) {
      if (column == nullptr) continue;
      names += std::string(";") + column;
      values += std::string(";") + value;
    }
    Read(names.append("\n").append(values).append("\n"), {}, kind.name);
    all += std::string(kind.name) + ":";
    for (const NewCode& code : plan->UnknownCodes())
      all += " " + code.column + "=" + code.table + " " + code.name + ",";
    all += "\n";
  }
  EXPECT_EQ(
      all,
      "viaturas: Marca=zor_PV_Marcas Sem Marca, Modelo=zor_PV_Modelos Sem Modelo, "
      "Categoria=zor_PV_Categorias Sem Categoria, Departamento=zor_PV_Departamentos Sem Departamento, "
      "CompLeasing=zor_PV_Companhias Sem CompLeasing,\n"
      "gastos: TipoGasto=zor_PV_TiposGastos Sem TipoGasto, Motorista=zor_Funcionarios Sem Motorista, "
      "Viagem=zor_PV_Viagens Sem Viagem,\n"
      "apolices: Companhia=zor_PV_Companhias Sem Companhia, TipoSeguro=zor_PV_TiposSeguro Sem TipoSeguro,\n"
      "revisoes: TipoManut=zor_PV_TiposManut Sem TipoManut,\n"
      "inspecoes:\n"
      "multas: Motorista=zor_Funcionarios Sem Motorista,\n"
      "sinistros: Motorista=zor_Funcionarios Sem Motorista,\n"
      "acessorios: TipoAcessorio=zor_PV_TiposAcessorios Sem TipoAcessorio,\n"
      "cartas: Motorista=zor_Funcionarios 12-AB-34,\n");
}

}  // namespace
}  // namespace exchange
