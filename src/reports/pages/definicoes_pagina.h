#pragma once

#include "reports/definicoes.h"

namespace reports {

/// A definition as a page edits it: all that is set, and a row without values for each vehicle, type,
/// category or rule that has none; rules with what they look for and how they are set now.
Tabela VerParaEditar(const zorCrmParvel::DataAccessRef& bd, const Definicao& definicao);

/// The values of a row as they are typed, by column.
std::map<std::string, std::string> Textos(const Tabela& tabela, const LinhaDaTabela& linha);

}  // namespace reports
