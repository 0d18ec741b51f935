#pragma once

#include "events/event_entity.h"

namespace zorCrmParvel {

/// One maintenance visit of a vehicle.
class clRevisoes : public EventEntity {
 public:
  clRevisoes();

  std::string TipoManut;
  platform::Currency Km;
  platform::Currency Custo;
  std::string Marca;   // kept for callers; no column holds it
  std::string Modelo;  // likewise

  /// The vehicle's revisions, or all of them when `Codigo` is empty.
  RecordsetRef LerRevisoes();

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

}  // namespace zorCrmParvel
