#pragma once

#include "host/data_access.h"
#include "platform/currency.h"

/// What a vehicle's events have cost, exactly. Error 94 on an event without a cost.
namespace zorCrmParvel::Tools {

/// Expenses whose type is lost aren't counted.
platform::Currency SomaCustoGastos(const DataAccessRef& bd, const std::string& Matricula);
/// An empty plate sums the revisions of all vehicles.
platform::Currency SomaCustoRevisoes(const DataAccessRef& bd, const std::string& Matricula);
platform::Currency SomaCustoInspecoes(const DataAccessRef& bd, const std::string& Matricula);
platform::Currency SomaCustoAcessorios(const DataAccessRef& bd, const std::string& Matricula);

/// Expenses, accessories and inspections together.
platform::Currency SomaCustoSemRevisoes(const DataAccessRef& bd, const std::string& Matricula);
/// The same with the revisions.
platform::Currency SomaCustoComRevisoes(const DataAccessRef& bd, const std::string& Matricula);

}  // namespace zorCrmParvel::Tools

namespace zorCrmParvel {

/// Writes the total cost of a vehicle on its row, and that cost over the kilometres of its odometer. A plate
/// that is unknown becomes a vehicle with these figures alone.
void GuardarCustoTotal(const DataAccessRef& bd, const std::string& Matricula, platform::Currency total);

}  // namespace zorCrmParvel
