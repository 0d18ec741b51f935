#pragma once

#include "events/event_entity.h"

namespace zorCrmParvel {

/// An accident of a vehicle and a driver.
class clSinistros : public EventEntity {
 public:
  clSinistros();

  std::string Motorista;
  std::string LocalAc;
  std::int16_t Responsavel = 0;  // 1: the driver was to blame
  platform::Currency Custo;
  std::string Descrição;  // kept for callers; no column holds it

  /// The vehicle's accidents, in no order.
  RecordsetRef LerSinistros();
  RecordsetRef ListaDeCarros() { return {}; }

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

}  // namespace zorCrmParvel
