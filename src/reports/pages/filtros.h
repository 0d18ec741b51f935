#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/data_access.h"
#include "reports/relatorio.h"

namespace reports {

/// One thing that a page can filter by, with all its values.
struct Filtro {
  struct Opcao {
    std::string codigo;
    std::string nome;  // may be empty
  };
  const char* chave;   // "departamento"
  const char* titulo;  // "Departamentos"
  std::vector<Opcao> opcoes;
};

/// The filters of a report, read from the code tables; drivers where it knows them.
std::vector<Filtro> LerFiltros(const zorCrmParvel::DataAccessRef& bd, TipoDeRelatorio tipo);

/// The codes chosen, by the filter's key; none let everything through.
using Escolhidos = std::map<std::string, std::vector<std::string>>;

/// Puts what was chosen into a request, in the place of what it had.
void Filtra(Pedido& pedido, const Escolhidos& escolhidos);
/// What a request has been filtered by.
Escolhidos FiltrosDe(const Pedido& pedido);

}  // namespace reports
