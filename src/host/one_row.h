#pragma once

#include <string>

#include "host/data_access.h"
#include "host/row.h"
#include "platform/runtime_error.h"

/// What entities do to the one row of their key. Failures of the database go to the caller.
namespace zorCrmParvel {

/// Gives the first row that a statement finds to `ler`. False when it finds none.
template <typename F>
bool LerLinha(const DataAccessRef& bd, const Statement& statement, F&& ler) {
  RecordsetRef rs;
  bd->AbrirLeitura("", statement, rs);
  const bool found = !rs->Eof();
  if (found) ler(Row(*rs));
  rs->Close();
  return found;
}

/// Lets `escrever` assign the columns of the row that a statement finds or, when it finds none, of a new row
/// with the key, cut to its column; then writes it.
template <typename F>
void EscreverLinha(const DataAccessRef& bd, const Statement& statement, const char* coluna,
                   const std::string& chave, F&& escrever) {
  RecordsetRef rs;
  bd->AbrirEdicao(statement, rs);
  Row row(*rs);
  if (rs->Eof()) {
    rs->AddNew();
    row.cut(coluna, chave);
  }
  escrever(row);
  rs->Update();
  rs->Close();
}

/// Runs a removal. False when the database refused it: the rows stay, and the caller says nothing.
inline bool Remover(const DataAccessRef& bd, const Statement& statement) {
  try {
    bd->ExecutarSql("", statement);
    return true;
  } catch (const platform::RuntimeError&) {
    return false;
  }
}

}  // namespace zorCrmParvel
