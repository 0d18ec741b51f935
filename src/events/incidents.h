#pragma once

#include "events/event_entity.h"

/// What happens to a vehicle while a driver has it: fines and accidents. The vehicle's figures don't know
/// them.
namespace zorCrmParvel {

/// What a fine and an accident have in common.
class Incidente : public EventEntity {
 public:
  using EventEntity::EventEntity;

  std::string Motorista;
  std::string Descrição;  // kept for callers; no column holds it

  RecordsetRef ListaDeCarros() { return {}; }

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

/// A traffic fine.
class clMultas : public Incidente {
 public:
  clMultas();

  platform::Currency Valor;           // column ValorMulta
  std::int16_t Responsabilidade = 0;  // 1: the driver answers for it

  /// The vehicle's fines, in no order.
  RecordsetRef LerMultas() { return LerDaViatura(); }

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

/// An accident.
class clSinistros : public Incidente {
 public:
  clSinistros();

  std::string LocalAc;           // the place; an error when it is longer than its column
  std::int16_t Responsavel = 0;  // 1: the driver was to blame
  platform::Currency Custo;

  /// The vehicle's accidents, in no order.
  RecordsetRef LerSinistros() { return LerDaViatura(); }

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

}  // namespace zorCrmParvel
