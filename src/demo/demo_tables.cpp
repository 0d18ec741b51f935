#include <vector>

#include "demo/demo_parts.h"

#include "masterdata/code_table.h"
#include "masterdata/tipos_gastos.h"
#include "setup/base_codes.h"

namespace demo {
namespace {

using namespace zorCrmParvel;

using setup::Code;

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
const std::vector<Code> kViagens = {{"ALGARVE", "Lisboa - Faro"},     {"CENTRO", "Lisboa - Coimbra"},
                                    {"ESPANHA", "Porto - Madrid"},    {"INTERIOR", "Guarda - Castelo Branco"},
                                    {"MINHO", "Porto - Braga"},       {"NORTE", "Lisboa - Porto"},
                                    {"URBANO", "Distribuição urbana"}};

void WriteExpenseTypes(const DataAccessRef& bd) {
  clTiposGastos tipo;
  tipo.bd = bd;
  for (const setup::ExpenseType& type : setup::TiposGastos()) {
    tipo.Codigo = type.codigo;
    tipo.Descrição = type.nome;
    tipo.Combustivel = type.combustivel ? 1 : 0;
    tipo.CustoUnit = platform::Currency::FromTenThousandths(type.custoUnit);
    tipo.Escrever();
  }
}

}  // namespace

void FillDemoTables(const DataAccessRef& bd) {
  setup::WriteCodes<clCategorias>(bd, setup::Categorias());
  setup::WriteCodes<clMarcas>(bd, setup::Marcas());
  setup::WriteCodes<clModelos>(bd, kModelos);
  setup::WriteCodes<clDepartamentos>(bd, kDepartamentos);
  setup::WriteCodes<clCompanhias>(bd, kCompanhias);
  setup::WriteCodes<clTiposAcessorios>(bd, setup::TiposAcessorios());
  setup::WriteCodes<clTiposManut>(bd, setup::TiposManut());
  setup::WriteCodes<clTiposSeguros>(bd, setup::TiposSeguro());
  setup::WriteCodes<clViagens>(bd, kViagens);
  WriteExpenseTypes(bd);
}

}  // namespace demo
