#include "setup/base_codes.h"

#include <algorithm>

#include "masterdata/code_table.h"
#include "masterdata/tipos_gastos.h"

namespace setup {
namespace {

using namespace zorCrmParvel;

/// Of the codes of a table, those that are not there.
template <typename Entity, typename Kind>
std::vector<Kind> Missing(const DataAccessRef& bd, std::vector<Kind> codes) {
  Entity entity;
  entity.bd = bd;
  const auto there = [&](const Kind& code) {
    entity.Codigo = code.codigo;
    return entity.Ler();
  };
  codes.erase(std::remove_if(codes.begin(), codes.end(), there), codes.end());
  return codes;
}

template <typename Entity>
long WriteMissing(const DataAccessRef& bd, const std::vector<Code>& codes) {
  const std::vector<Code> missing = Missing<Entity>(bd, codes);
  WriteCodes<Entity>(bd, missing);
  return static_cast<long>(missing.size());
}

long WriteMissingTypes(const DataAccessRef& bd) {
  const std::vector<ExpenseType> missing = Missing<clTiposGastos>(bd, TiposGastos());
  clTiposGastos tipo;
  tipo.bd = bd;
  for (const ExpenseType& type : missing) {
    tipo.Codigo = type.codigo;
    tipo.Descrição = type.nome;
    tipo.Combustivel = type.combustivel ? 1 : 0;
    tipo.Escrever();
  }
  return static_cast<long>(missing.size());
}

}  // namespace

const std::vector<Code>& Categorias() {
  static const std::vector<Code> codes = {{"LIGP", "Ligeiro de passageiros"},
                                          {"LIGM", "Ligeiro de mercadorias"},
                                          {"LIGTP", "Ligeiro de transporte público"},
                                          {"PESP", "Pesado de passageiros"},
                                          {"PESM", "Pesado de mercadorias"},
                                          {"RLIG", "Reboque ligeiro"},
                                          {"RSRB", "Reboque e semi-reboque"},
                                          {"TESC", "Transporte escolar"},
                                          {"PREB", "Pronto-socorro"}};
  return codes;
}

const std::vector<Code>& Marcas() {
  static const std::vector<Code> codes = {
      {"AUDI", "Audi"},          {"BMW", "BMW"},     {"CITR", "Citroën"}, {"DAF", "DAF"},
      {"FIAT", "Fiat"},          {"FORD", "Ford"},   {"IVECO", "Iveco"},  {"MAN", "MAN"},
      {"MERC", "Mercedes-Benz"}, {"OPEL", "Opel"},   {"PEUG", "Peugeot"}, {"REN", "Renault"},
      {"SCAN", "Scania"},        {"SEAT", "SEAT"},   {"SKODA", "Škoda"},  {"TESLA", "Tesla"},
      {"TOY", "Toyota"},         {"VOLVO", "Volvo"}, {"VW", "Volkswagen"}};
  return codes;
}

const std::vector<Code>& TiposAcessorios() {
  static const std::vector<Code> codes = {{"BARRAS", "Barras de tejadilho"},
                                          {"CADEIRA", "Cadeira de criança"},
                                          {"EXTINTOR", "Extintor"},
                                          {"GPS", "Localizador GPS"},
                                          {"PNEUS", "Jogo de pneus"},
                                          {"PLATAF", "Plataforma elevatória"},
                                          {"PRIMSOC", "Mala de primeiros socorros"},
                                          {"TRIANG", "Triângulo e colete"}};
  return codes;
}

const std::vector<Code>& TiposManut() {
  static const std::vector<Code> codes = {
      {"CALC", "Calços e discos de travão"}, {"CORREIA", "Correia de distribuição"},
      {"OLEO", "Mudança de óleo e filtros"}, {"PNEUS", "Substituição de pneus"},
      {"REV30", "Revisão dos 30 000 km"},    {"REVANUAL", "Revisão anual"},
      {"TACOG", "Verificação do tacógrafo"}};
  return codes;
}

const std::vector<Code>& TiposSeguro() {
  static const std::vector<Code> codes = {{"CARGA", "Mercadorias transportadas"},
                                          {"DANOS", "Danos próprios"},
                                          {"OCUP", "Ocupantes"},
                                          {"RC", "Responsabilidade civil"},
                                          {"VIDROS", "Quebra isolada de vidros"}};
  return codes;
}

const std::vector<ExpenseType>& TiposGastos() {
  static const std::vector<ExpenseType> codes = {{"ADBLUE", "AdBlue", false, 9900},
                                                 {"ELECTRIC", "Carregamento eléctrico", true, 3900},
                                                 {"ESTAC", "Estacionamento", false, 0},
                                                 {"GASOLEO", "Gasóleo", true, 16590},
                                                 {"GASOLINA", "Gasolina 95", true, 17490},
                                                 {"GPL", "GPL Auto", true, 8990},
                                                 {"LAVAGEM", "Lavagem", false, 80000},
                                                 {"PORTAGEM", "Portagens", false, 0},
                                                 {"PNEUS", "Reparação de pneus", false, 150000}};
  return codes;
}

long WriteBaseCodes(const DataAccessRef& bd) {
  return WriteMissing<clCategorias>(bd, Categorias()) + WriteMissing<clMarcas>(bd, Marcas()) +
         WriteMissing<clTiposAcessorios>(bd, TiposAcessorios()) +
         WriteMissing<clTiposManut>(bd, TiposManut()) + WriteMissing<clTiposSeguros>(bd, TiposSeguro()) +
         WriteMissingTypes(bd);
}

}  // namespace setup
