#pragma once

#include "events/event_entity.h"

namespace zorCrmParvel {

/// Something fitted to a vehicle, over a span of kilometres, perhaps with a validity.
class clAcessorios : public EventEntity {
 public:
  clAcessorios();

  std::string TipoAcessorio;
  std::string Marca;   // free text, no code
  std::string Modelo;  // free text
  platform::Currency KmInicial;
  platform::Currency KmFinal;
  platform::Currency Qtd;
  platform::Currency Custo;
  platform::Date DataVal;  // the zero date for none

  /// The vehicle's accessories, in no order.
  RecordsetRef LerAcessorios();
  /// The accessories of all vehicles.
  RecordsetRef LerTodosAcessorios();
  RecordsetRef ListaDeCarros() { return {}; }

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

}  // namespace zorCrmParvel
