#pragma once

#include "events/event_entity.h"

namespace zorCrmParvel {

/// An insurance policy of a vehicle with one company for a period. `Validade`, its end, orders the sequence.
class clSeguros : public EventEntity {
 public:
  clSeguros();

  std::int32_t& Seg_Id{Id};
  platform::Date& Validade{Data};
  std::string Companhia;
  std::string TipoSeguro;
  std::string Apolice;  // the policy's number
  platform::Currency Premio;
  platform::Currency Franquia;
  std::int16_t Modalidade = 0;  // 0 yearly, 1 half-yearly
  platform::Date DataInicio;
  std::int16_t Inactiva = 0;  // 1: closed
  std::string Coberturas;
  std::string Descrição;  // kept for callers; no column holds it

  /// The vehicle's policies, open ones first; those of all vehicles when `Codigo` is empty.
  RecordsetRef LerApolices();
  /// True when the company exists; its name comes back in `Descr`.
  bool ValidarCompanhia(std::string& Descr);
  RecordsetRef ListaDeCarros() { return {}; }

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

}  // namespace zorCrmParvel
