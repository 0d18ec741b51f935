#pragma once

#include "events/event_entity.h"

namespace zorCrmParvel {

/// A traffic fine of a vehicle and a driver.
class clMultas : public EventEntity {
 public:
  clMultas();

  std::string Motorista;
  platform::Currency Valor;           // column ValorMulta
  std::int16_t Responsabilidade = 0;  // 1: the driver answers for it
  std::string Descrição;              // kept for callers; no column holds it

  /// The vehicle's fines, in no order.
  RecordsetRef LerMultas();
  RecordsetRef ListaDeCarros() { return {}; }

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

}  // namespace zorCrmParvel
