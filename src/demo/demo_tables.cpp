#include <vector>

#include "demo/demo_parts.h"

#include "masterdata/code_table.h"
#include "masterdata/tipos_gastos.h"

namespace demo {
namespace {

using namespace zorCrmParvel;

struct Code {
  const char* codigo;
  const char* nome;
};

const std::vector<Code> kCategorias = {{"LIGP", "Ligeiro de passageiros"},
                                       {"LIGM", "Ligeiro de mercadorias"},
                                       {"LIGTP", "Ligeiro de transporte público"},
                                       {"PESP", "Pesado de passageiros"},
                                       {"PESM", "Pesado de mercadorias"},
                                       {"RLIG", "Reboque ligeiro"},
                                       {"RSRB", "Reboque e semi-reboque"},
                                       {"TESC", "Transporte escolar"},
                                       {"PREB", "Pronto-socorro"}};
const std::vector<Code> kMarcas = {
    {"AUDI", "Audi"},          {"BMW", "BMW"},     {"CITR", "Citroën"}, {"DAF", "DAF"},
    {"FIAT", "Fiat"},          {"FORD", "Ford"},   {"IVECO", "Iveco"},  {"MAN", "MAN"},
    {"MERC", "Mercedes-Benz"}, {"OPEL", "Opel"},   {"PEUG", "Peugeot"}, {"REN", "Renault"},
    {"SCAN", "Scania"},        {"SEAT", "SEAT"},   {"SKODA", "Škoda"},  {"TESLA", "Tesla"},
    {"TOY", "Toyota"},         {"VOLVO", "Volvo"}, {"VW", "Volkswagen"}};
const std::vector<Code> kModelos = {{"A3", "A3 Sportback"},
                                    {"ACTROS", "Actros 1845"},
                                    {"BERLINGO", "Berlingo Van"},
                                    {"BOXER", "Boxer L3H2"},
                                    {"CLIO", "Clio"},
                                    {"CORSA", "Corsa"},
                                    {"CRAFTER", "Crafter 35"},
                                    {"DAILY", "Daily 35S14"},
                                    {"DUCATO", "Ducato Maxi"},
                                    {"FH460", "FH 460"},
                                    {"GOLF", "Golf Variant"},
                                    {"KANGOO", "Kangoo Express"},
                                    {"LEON", "León ST"},
                                    {"MASTER", "Master L2H2"},
                                    {"MEGANE", "Mégane"},
                                    {"MODEL3", "Model 3"},
                                    {"OCTAVIA", "Octavia"},
                                    {"PARTNER", "Partner"},
                                    {"R450", "R 450"},
                                    {"SPRINTER", "Sprinter 314"},
                                    {"TGX", "TGX 18.480"},
                                    {"TRANSIT", "Transit 350"},
                                    {"VITO", "Vito Tourer"},
                                    {"XF480", "XF 480"},
                                    {"YARIS", "Yaris Hybrid"}};
const std::vector<Code> kDepartamentos = {
    {"ADM", "Administração"}, {"ARM", "Armazém"}, {"COM", "Comercial"},  {"DIST", "Distribuição"},
    {"MAN", "Manutenção"},    {"OBRAS", "Obras"}, {"QUAL", "Qualidade"}, {"TRP", "Transportes"}};
const std::vector<Code> kCompanhias = {{"ATLSEG", "Atlântico Seguros"},   {"BALUARTE", "Baluarte Seguros"},
                                       {"DOURO", "Douro Leasing"},        {"LUSITRUST", "Lusitrust Leasing"},
                                       {"MONDEGO", "Seguradora Mondego"}, {"RIBEIRA", "Ribeira Renting"},
                                       {"TEJOSEG", "Tejo Seguros"}};
const std::vector<Code> kTiposAcessorios = {{"BARRAS", "Barras de tejadilho"},
                                            {"CADEIRA", "Cadeira de criança"},
                                            {"EXTINTOR", "Extintor"},
                                            {"GPS", "Localizador GPS"},
                                            {"PNEUS", "Jogo de pneus"},
                                            {"PLATAF", "Plataforma elevatória"},
                                            {"PRIMSOC", "Mala de primeiros socorros"},
                                            {"TRIANG", "Triângulo e colete"}};
const std::vector<Code> kTiposManut = {
    {"CALC", "Calços e discos de travão"}, {"CORREIA", "Correia de distribuição"},
    {"OLEO", "Mudança de óleo e filtros"}, {"PNEUS", "Substituição de pneus"},
    {"REV30", "Revisão dos 30 000 km"},    {"REVANUAL", "Revisão anual"},
    {"TACOG", "Verificação do tacógrafo"}};
const std::vector<Code> kTiposSeguro = {{"CARGA", "Mercadorias transportadas"},
                                        {"DANOS", "Danos próprios"},
                                        {"OCUP", "Ocupantes"},
                                        {"RC", "Responsabilidade civil"},
                                        {"VIDROS", "Quebra isolada de vidros"}};
const std::vector<Code> kViagens = {{"ALGARVE", "Lisboa - Faro"},     {"CENTRO", "Lisboa - Coimbra"},
                                    {"ESPANHA", "Porto - Madrid"},    {"INTERIOR", "Guarda - Castelo Branco"},
                                    {"MINHO", "Porto - Braga"},       {"NORTE", "Lisboa - Porto"},
                                    {"URBANO", "Distribuição urbana"}};

struct ExpenseType {
  const char* codigo;
  const char* nome;
  std::int16_t combustivel;
  std::int64_t custoUnit;  // ten-thousandths of a euro
};

const std::vector<ExpenseType> kTiposGastos = {{"ADBLUE", "AdBlue", 0, 9900},
                                               {"ELECTRIC", "Carregamento eléctrico", 1, 3900},
                                               {"ESTAC", "Estacionamento", 0, 0},
                                               {"GASOLEO", "Gasóleo", 1, 16590},
                                               {"GASOLINA", "Gasolina 95", 1, 17490},
                                               {"GPL", "GPL Auto", 1, 8990},
                                               {"LAVAGEM", "Lavagem", 0, 80000},
                                               {"PORTAGEM", "Portagens", 0, 0},
                                               {"PNEUS", "Reparação de pneus", 0, 150000}};

template <typename Entity>
void Write(const DataAccessRef& bd, const std::vector<Code>& codes) {
  Entity entity;
  entity.bd = bd;
  for (const Code& code : codes) {
    entity.Codigo = code.codigo;
    entity.Descrição = code.nome;
    entity.Escrever();
  }
}

void WriteExpenseTypes(const DataAccessRef& bd) {
  clTiposGastos tipo;
  tipo.bd = bd;
  for (const ExpenseType& type : kTiposGastos) {
    tipo.Codigo = type.codigo;
    tipo.Descrição = type.nome;
    tipo.Combustivel = type.combustivel;
    tipo.CustoUnit = platform::Currency::FromTenThousandths(type.custoUnit);
    tipo.Escrever();
  }
}

}  // namespace

void FillDemoTables(const DataAccessRef& bd) {
  Write<clCategorias>(bd, kCategorias);
  Write<clMarcas>(bd, kMarcas);
  Write<clModelos>(bd, kModelos);
  Write<clDepartamentos>(bd, kDepartamentos);
  Write<clCompanhias>(bd, kCompanhias);
  Write<clTiposAcessorios>(bd, kTiposAcessorios);
  Write<clTiposManut>(bd, kTiposManut);
  Write<clTiposSeguros>(bd, kTiposSeguro);
  Write<clViagens>(bd, kViagens);
  WriteExpenseTypes(bd);
}

}  // namespace demo
