#pragma once

#include "events/event_entity.h"

namespace zorCrmParvel {

/// One periodic inspection of a vehicle.
class clInspecoes : public EventEntity {
 public:
  clInspecoes();

  std::int32_t& Insp_Id{Id};
  platform::Currency Km;
  platform::Currency Custo;

  /// The vehicle's inspections, in no order.
  RecordsetRef LerInspecoes();

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

}  // namespace zorCrmParvel
