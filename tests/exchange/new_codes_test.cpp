// Codes that a file names and the database lacks.

#include "exchange/plan/new_codes.h"
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

TEST(NewCodes, AreShortAndNobodyElses) {
  const std::pair<const char*, const char*> codes[] = {
      {"", "X"},
      {"...", "X"},
      {"Portagem", "PORTAGEM"},
      {"Via Verde 1", "VIAVERDE1"},
      {"Estacionamento", "ESTACIONAM"},
      {"Parque de Estacionamento", "PARQDEEST"},
      {"a bcdefghijkl", "ABCDEF"},
      {"abcdefgh i j k l", "ABCDIJKL"},
      {"Lavagem e aspiração do habitáculo da viatura", "LAVAEASDOH"}};
  for (const auto& [name, code] : codes) {
    std::set<std::string> taken;
    EXPECT_EQ(ProposedCode(name, taken), code) << name;
    EXPECT_TRUE(taken.contains(code));
  }
  std::set<std::string> taken = {"LAVAGENS3"};
  std::string all;
  for (int i = 0; i < 10; ++i) all += ProposedCode("Lavagens", taken) + " ";
  for (int i = 0; i < 10; ++i) all += ProposedCode("Estacionamento", taken) + " ";
  EXPECT_EQ(
      all,
      "LAVAGENS LAVAGENS2 LAVAGENS4 LAVAGENS5 LAVAGENS6 LAVAGENS7 LAVAGENS8 LAVAGENS9 LAVAGENS10 LAVAGENS11 "
      "ESTACIONAM ESTACIONA2 ESTACIONA3 ESTACIONA4 ESTACIONA5 ESTACIONA6 ESTACIONA7 ESTACIONA8 ESTACIONA9 "
      "ESTACION10 ");
  const std::pair<std::set<std::string>, const char*> drivers[] = {{{}, "0001"},
                                                                   {{"A", ""}, "0001"},
                                                                   {{"9"}, "10"},
                                                                   {{"0"}, "0001"},
                                                                   {{"2", "010", "0003"}, "0011"},
                                                                   {{"999999999"}, "1000000000"},
                                                                   {{"1234567890", "7"}, "8"}};
  for (auto [known, code] : drivers) {
    EXPECT_EQ(ProposedCode("zor_Funcionarios", "Ana", known), code);
    EXPECT_TRUE(known.contains(code));
  }
  EXPECT_EQ(ProposedCode("zor_PV_Marcas", "Ana", taken), "ANA");
}

TEST(NewCodes, NamesAreNearEqualWhereASlipPartsThem) {
  const struct {
    const char* a;
    const char* b;
    bool near;
  } cases[] = {{"Gasóleo", "GASOLEO", true},
               {"Gasol", "Gasl", false},
               {"Gasol", "Gasool", true},
               {"Gasol", "Gosel", false},
               {"abcd", "abce", false},
               {"abcdefgh", "abcdefxy", false},
               {"abcdefghi", "abcdefgxy", true},
               {"abcdefghi", "abcdefxyz", false},
               {"abcdefghi", "abcdefghijk", true},
               {"abcdefghi", "abcdefghijkl", false},
               {"Gasolina 95", "Gasolina 98", false},
               {"Norte 1", "Norte", false}};
  for (const auto& c : cases) EXPECT_EQ(AreNearEqual(c.a, c.b), c.near) << c.a << " " << c.b;
}

TEST_F(ImportPlanTest, SpellingsOfOneNameAreOneCodeAndFuelsAreKnown) {
  std::string csv = "Matrícula;Data;Tipo;Valor\n";
  for (const char* type : {"Lavagem", "Lavajem", "Lavajem", "Oficina", "Portajem", "Gasoil", "Unleaded 95",
                           "SP95", "Essence", "GLP", "Carregamento 22 kWh", "Electricity", "Petrol", "Óleo",
                           "Recarga", "Charging", "LPG", "Eletricidade"})
    csv += std::string("12-AB-34;20-01-2024;") + type + ";5\n";
  Read(csv);
  std::string all;
  for (const NewCode& code : plan->UnknownCodes()) {
    all += code.code + (code.fuel ? "* " : " ") + code.name + " " + std::to_string(code.rows);
    for (const std::string& text : code.texts) all += " «" + text + "»";
    for (const NamedCode& one : code.similar) all += " ou " + one.code;
    all += "\n";
  }
  EXPECT_EQ(all, R"(LAVAJEM Lavajem 3 «Lavagem» «Lavajem»
CARR22KWH* Carregamento 22 kWh 1 «Carregamento 22 kWh»
CHARGING* Charging 1 «Charging»
ELECTRICIT* Electricity 1 «Electricity»
ELETRICIDA* Eletricidade 1 «Eletricidade»
ESSENCE* Essence 1 «Essence»
GLP* GLP 1 «GLP»
GASOIL* Gasoil 1 «Gasoil»
LPG* LPG 1 «LPG»
OFICINA Oficina 1 «Oficina»
PETROL* Petrol 1 «Petrol»
PORTAJEM Portajem 1 «Portajem» ou PORTAGEM
RECARGA* Recarga 1 «Recarga»
SP95* SP95 1 «SP95»
UNLEADED95* Unleaded 95 1 «Unleaded 95»
OLEO Óleo 1 «Óleo»
)");
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
