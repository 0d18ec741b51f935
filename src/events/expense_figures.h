#pragma once

#include <string>

#include "host/data_access.h"
#include "platform/currency.h"

namespace zorCrmParvel {

class clViaturas;

/// What all expenses of a vehicle add up to. Fuel expenses are those whose type is a fuel.
struct ResumoDeGastos {
  platform::Currency TotalQtd;          // fuel
  platform::Currency TotalCustoComb;    // fuel
  platform::Currency TotalCustoOutros;  // everything else
  platform::Currency KmMax;             // highest odometer of the fuel expenses
  platform::Currency CustoPrimeiro;     // of the oldest fuel expense
  platform::Currency QtdPrimeira;       // likewise; keeps its last value when there is no fuel
  bool UmaLeitura = false;              // exactly one fuel expense

  /// Sums the vehicle's expenses up anew. Error 6 past 32,767 fuel expenses.
  void Ler(const DataAccessRef& bd, const std::string& Matricula);
  platform::Currency Consumo(platform::Currency kmInicial, platform::Currency qtdInicial) const;
  /// `custo` over the distance driven since `kmInicial`.
  platform::Currency CustoPorKm(platform::Currency custo, platform::Currency kmInicial) const;
  /// Writes the figures on the vehicle, whose row is read first; consumption and cost below zero are 0.
  void ActualizaViatura(const DataAccessRef& bd, const std::string& Matricula, platform::Currency consumo,
                        platform::Currency custoKm, platform::Currency total) const;
};

/// The figures of a vehicle after a save of one of its expenses, by its own initial kilometres and quantity.
void RecalcularViatura(const DataAccessRef& bd, const std::string& Matricula);

/// The rules of an expense's fields: the message of the rule that fails, null when all is well.
namespace RegrasDeGastos {
inline constexpr const char* kViaturaInexistente = "Viatura não existente!";
inline constexpr const char* kViagemInexistente = "Viagem não existente!";
inline constexpr const char* kMotoristaInexistente = "Motorista não existente!";
inline constexpr const char* kTipoInexistente = "Tipo Gasto não existente!";
const char* Quantidade(bool combustivel, platform::Currency quantidade);
const char* Custo(platform::Currency custo);
/// `anterior` is the odometer of the latest fuel expense before this one.
const char* Km(bool combustivel, platform::Currency km, platform::Currency anterior);
}  // namespace RegrasDeGastos

}  // namespace zorCrmParvel
