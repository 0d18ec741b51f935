// What the hosts' own tables hold for the rules.
#include "platform/runtime_error.h"
#include "reports/carregar.h"
#include "reports/leitor.h"

namespace reports {

using zorCrmParvel::DataAccessRef;
using zorCrmParvel::Statement;

Leitor Leitor::DeTabelaPropria(const DataAccessRef& bd, const Statement& statement) {
  try {
    return {bd, statement};
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kInvalidObject) throw;
    return {};
  }
}

Ajustes CarregarAjustes(const DataAccessRef& bd) {
  Ajustes ajustes = AjustesIniciais();
  Leitor rs = Leitor::DeTabelaPropria(bd, "SELECT Regra, Activa, Limiar FROM parvel_Regras");
  while (rs.Avanca())
    for (std::size_t i = 0; i < kRegras; ++i) {
      if (Dobrado(rs.Texto(0)) != TextosDe(static_cast<Regra>(i)).chave) continue;
      if (!rs.Nulo(1)) ajustes[i].activa = rs.Inteiro(1) != 0;
      if (!rs.Nulo(2)) ajustes[i].limiar = rs.Moeda(2);
    }
  return ajustes;
}

Vistos CarregarVistos(const DataAccessRef& bd) {
  Vistos vistos;
  Leitor rs = Leitor::DeTabelaPropria(bd, "SELECT Regra, Tabela, Registo, Nota FROM parvel_Vistos");
  while (rs.Avanca())
    vistos[{rs.Copia(0), rs.Copia(1), static_cast<std::int32_t>(rs.Inteiro(2))}] = rs.Copia(3);
  return vistos;
}

}  // namespace reports
