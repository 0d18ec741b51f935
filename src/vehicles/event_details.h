#pragma once

#include <cstdint>
#include <string>

#include "drivers/motoristas.h"
#include "vehicles/viaturas_form.h"

namespace zorCrmParvel {

/// The name that a code stands for in its table.
template <typename Entity>
std::string NomeDe(const DataAccessRef& bd, const std::string& codigo) {
  Entity entidade;
  entidade.bd = bd;
  entidade.Codigo = codigo;
  entidade.Ler();
  return entidade.Descrição;
}

// Each reads one event by its key and shows it in the read-only fields of its tab, codes by their names.
// False when there is no event of the key, and the fields stay as they were.
bool DadosSeguro(Viaturas& ficha, std::int32_t id);
bool DadosManut(Viaturas& ficha, std::int32_t id);
bool DadosInspecoes(Viaturas& ficha, std::int32_t id);
bool DadosAcessorios(Viaturas& ficha, std::int32_t id);
bool DadosGastos(Viaturas& ficha, std::int32_t id);
bool DadosSinistros(Viaturas& ficha, std::int32_t id);
bool DadosMultas(Viaturas& ficha, std::int32_t id);

}  // namespace zorCrmParvel
