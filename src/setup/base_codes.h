#pragma once

#include <cstdint>
#include <vector>

#include "host/data_access.h"

namespace setup {

struct Code {
  const char* codigo;
  const char* nome;
};

struct ExpenseType {
  const char* codigo;
  const char* nome;
  bool combustivel;
  std::int64_t custoUnit;  // ten-thousandths of a euro; 0: it varies
};

// What offices in Portugal usually classify by. The categories are those that the rules of the next
// inspection know.
const std::vector<Code>& Categorias();
const std::vector<Code>& Marcas();
const std::vector<Code>& TiposAcessorios();
const std::vector<Code>& TiposManut();
const std::vector<Code>& TiposSeguro();
const std::vector<ExpenseType>& TiposGastos();

/// Writes the codes above through their entities, but for those that are there: these stay as they are. Gives
/// back how many were written. Prices of expense types are left to the office.
long WriteBaseCodes(const zorCrmParvel::DataAccessRef& bd);

/// Writes codes of one table through its entity, whether they are there or not.
template <typename Entity>
void WriteCodes(const zorCrmParvel::DataAccessRef& bd, const std::vector<Code>& codes) {
  Entity entity;
  entity.bd = bd;
  for (const Code& code : codes) {
    entity.Codigo = code.codigo;
    entity.Descrição = code.nome;
    entity.Escrever();
  }
}

}  // namespace setup
