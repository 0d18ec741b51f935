#pragma once

#include "events/event_entity.h"

namespace zorCrmParvel {

/// One expense of a vehicle: a fuel fill, or any other cost by its type.
class clGastos : public EventEntity {
 public:
  clGastos();

  std::int32_t& Gst_Id{Id};
  std::string Motorista;
  std::string Viagem;
  platform::Currency Qtd;  // litres, for fuel
  platform::Currency Km;   // odometer at the moment of the expense
  platform::Currency ValorUn;
  platform::Currency Custo;
  std::string TipoGasto;

  /// The vehicle's expenses, newest first, each with its type's columns. One whose type is lost isn't among
  /// them.
  RecordsetRef LerGastos();
  /// Km of the vehicle's latest fuel expense before a moment, 0 when there is none.
  static platform::Currency KmAnterior(const DataAccessRef& bd, const std::string& matricula,
                                       platform::Date data);

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

}  // namespace zorCrmParvel
