#pragma once

#include <cstdint>

#include "host/data_access.h"
#include "platform/date.h"
#include "platform/variant.h"

namespace zorCrmParvel::Tools {

/// How near the day of an alert is; also the bands of the lists' conditions.
enum class Faixa : int { kNenhuma = 0, kBreve = 1, kMuitoBreve = 2, kPassada = 3 };

/// The ladder of all date rules, on the days from today: nothing beyond `limite`, soon from 10 days on, very
/// soon from 0 on, else past. The day of the limit itself is on no step, and so counts as past.
Faixa FaixaDosDias(std::int64_t dias, std::int64_t limite = 30);
/// Days from today on the workstation's clock to a date, negative when it is past. Error 94 on null.
std::int64_t DiasAte(const platform::Variant& data);
/// True for a null, and for the zero date by the face that `texto` gives of it.
bool SemData(const platform::Variant& data, const char* texto);

// Each check walks its table to the first hit and answers in `Alerta`, which is written only where a row
// reaches a ladder: over rows that don't, the value that came in goes out. A null where a rule needs a value
// is error 94; `Alerta` then keeps what it held. The alert lists have rules of their own.

/// Policies in force of vehicles in service. True on entry ends it at once.
void VerificaAlertasApolices(const DataAccessRef& bd, bool& Alerta);
/// Revisions of all vehicles, in service or not, by date and by kilometres. Every vehicle that isn't more
/// than 1000 km beyond its next revision is a hit of the kilometres.
void VerificaAlertasRevisoes(const DataAccessRef& bd, bool& Alerta);
/// Next inspections of the vehicles in service. A vehicle of a category without a rule is judged by the days
/// of the one before it.
void VerificaAlertasInspecoes(const DataAccessRef& bd, bool& Alerta);
/// Accessories with a validity of vehicles in service. True on entry ends it at once.
void VerificaAlertasAcessorios(const DataAccessRef& bd, bool& Alerta);
/// Identity and citizen cards, driving licences and passports of the active drivers, by the driver's own
/// record alone.
void VerificaAlertasMotoristas(const DataAccessRef& bd, bool& Alerta);

}  // namespace zorCrmParvel::Tools
