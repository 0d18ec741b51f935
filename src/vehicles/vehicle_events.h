#pragma once

#include <array>
#include <string>

#include "host/data_access.h"

namespace zorCrmParvel {

/// Opens a vehicle's events of one kind. The caller closes the rows.
using EventosDaViatura = RecordsetRef (*)(const DataAccessRef& bd, const std::string& matricula);

template <typename Entity, RecordsetRef (Entity::*Ler)()>
RecordsetRef LerEventos(const DataAccessRef& bd, const std::string& matricula) {
  Entity entidade;
  entidade.bd = bd;
  entidade.Codigo = matricula;
  return (entidade.*Ler)();
}

/// A message for each kind of event, in the order in which a removal asks: accessories, policies, accidents,
/// fines, revisions, expenses, inspections.
using AvisosDeAnulacao = std::array<const char*, 7>;

/// What the user said to the warnings before a vehicle is removed.
enum class RespostaAosAvisos { kSemAvisos, kAceites, kRecusados };

/// Warns of each kind of event that the vehicle has. The first answer but OK ends it.
RespostaAosAvisos AvisarDosEventos(const DataAccessRef& bd, const std::string& matricula,
                                   const AvisosDeAnulacao& avisos);

}  // namespace zorCrmParvel
