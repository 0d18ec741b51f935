#pragma once

#include <string>

#include "host/data_access.h"
#include "platform/currency.h"

namespace zorCrmParvel {

/// What all expenses of a vehicle add up to, and the figures of the vehicle that follow from it. Fuel
/// expenses are those whose type is a fuel; quantities are litres, consumption is litres per 100 km.
/// Consumption and cost per km are 0 on a single fuel expense, and never below. Error 6 on a quotient that
/// doesn't fit: the expense is stored by then.
class ResumoDeGastos {
 public:
  /// Where the vehicle began, as a ficha or an import knows it.
  struct Inicio {
    platform::Currency Km;
    platform::Currency Qtd;
  };

  /// Sums the vehicle's expenses up anew. Error 6 past 32,767 fuel expenses.
  void Ler(const DataAccessRef& bd, const std::string& Matricula);
  /// Writes the figures after an expense was saved: the oldest fuel expense is left out of consumption and
  /// cost per km. `outrosCustos` are added to the total.
  void ActualizaAposGravar(const DataAccessRef& bd, const std::string& Matricula, const Inicio& inicio,
                           platform::Currency outrosCustos) const;
  /// Writes the figures after an expense was removed. Here the oldest one's cost stays in the cost per km,
  /// the accessories count twice and the inspections not at all; the next save puts the figures right.
  void ActualizaAposAnular(const DataAccessRef& bd, const std::string& Matricula, const Inicio& inicio) const;

 private:
  /// `custoComb` goes over the distance driven. The vehicle's row is read first.
  void ActualizaViatura(const DataAccessRef& bd, const std::string& Matricula, const Inicio& inicio,
                        platform::Currency custoComb, platform::Currency total) const;

  platform::Currency TotalQtd;          // fuel
  platform::Currency TotalCustoComb;    // fuel
  platform::Currency TotalCustoOutros;  // everything else
  platform::Currency KmMax;             // highest odometer of the fuel expenses
  platform::Currency CustoPrimeiro;     // of the oldest fuel expense
  platform::Currency QtdPrimeira;       // likewise; keeps its last value when there is no fuel
  bool UmaLeitura = false;              // exactly one fuel expense
};

/// What counts in a vehicle's total beside its expenses when one of them is saved: accessories, inspections.
platform::Currency OutrosCustos(const DataAccessRef& bd, const std::string& Matricula);

/// The figures of a vehicle as a save of one of its expenses gives them, by its own initial kilometres and
/// quantity.
void RecalcularViatura(const DataAccessRef& bd, const std::string& Matricula);

}  // namespace zorCrmParvel
