#pragma once

#include <array>
#include <string>

#include "host/data_access.h"

namespace zorCrmParvel::Tools {

// The alert lists that no single statement can find: an open recordset in memory, and the routine that adds a
// row for everything that is due. A null where a value is needed is error 94, and a text wider than its field
// error -2147217887; the rows added so far stay.

/// Matricula, KmActuais, MesAno, DataPrx, Notas, Dias.
RecordsetRef RsAlertasInsp();
/// Motorista, Documento, Data, Notas, Dias, Codigo.
RecordsetRef RsAlertasMot();
/// Matricula, Acessorio, Marca, Data, Notas, Dias, Id.
RecordsetRef RsAlertasAcess();

/// Next inspections of the vehicles in service. A vehicle of a category without a rule repeats the days and
/// month of the one before it.
void EncheAlertasInsp(const RecordsetRef& rs, const DataAccessRef& bd);
/// Documents, licence classes, driver cards and tachograph downloads of the active drivers. Error 9 on a
/// licence class that there isn't.
void EncheAlertasMot(const RecordsetRef& rs, const DataAccessRef& bd);
/// Accessories with a validity, those of vehicles out of service too.
void EncheAlertasAcess(const RecordsetRef& rs, const DataAccessRef& bd);

/// The names of the licence classes, by `TipoCarta`.
void EncheTiposCarta(std::array<std::string, 10>& tipos);

}  // namespace zorCrmParvel::Tools
