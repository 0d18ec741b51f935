#pragma once

namespace zorCrmParvel::Tools {

// The rows of the alert lists that one statement can find. Days are counted on the database's clock.

/// Policies in force of vehicles in service that end within 30 days. On the 30th day `Notas` is null.
const char* SqlAlertasApolices();
/// Vehicles in service whose revision is due in less than 30 days, and those with less than 1000 km to go;
/// a vehicle of both kinds has a row for each.
const char* SqlAlertasRevisoes();
/// Vehicles in service with an unpaid road tax due in less than 30 days, and those with a tachograph download
/// due in less than 10. A row counts its days in `DiasSelo` or `DiasTac`; the other of the two is 100. On the
/// day itself `Notas` is null.
const char* SqlAlertasViaturas();

}  // namespace zorCrmParvel::Tools
