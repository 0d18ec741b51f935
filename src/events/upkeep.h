#pragma once

#include "events/event_entity.h"

/// The upkeep of a vehicle: what is done to it and fitted to it. Its costs are part of what the vehicle
/// costs.
namespace zorCrmParvel {

/// A visit to a workshop or an inspection centre, at some kilometres and at some cost.
class VisitaDaViatura : public EventEntity {
 public:
  using EventEntity::EventEntity;

  platform::Currency Km;
  platform::Currency Custo;

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

/// A maintenance revision.
class clRevisoes : public VisitaDaViatura {
 public:
  clRevisoes();

  std::string TipoManut;
  std::string Marca;   // kept for callers; no column holds it
  std::string Modelo;  // likewise

  /// The vehicle's revisions, or those of all vehicles when `Codigo` is empty, by plate.
  RecordsetRef LerRevisoes();

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

/// A periodic inspection.
class clInspecoes : public VisitaDaViatura {
 public:
  clInspecoes();

  std::int32_t& Insp_Id{Id};

  /// The vehicle's inspections, in no order.
  RecordsetRef LerInspecoes() { return LerDaViatura(); }

 protected:
  void LerCampos(const Row& row) override;
};

/// Something fitted to a vehicle, over a span of kilometres, perhaps with a validity.
class clAcessorios : public EventEntity {
 public:
  clAcessorios();

  std::string TipoAcessorio;
  std::string Marca;   // free text, no code
  std::string Modelo;  // free text
  platform::Currency KmInicial;
  platform::Currency KmFinal;  // 0 while it is fitted
  platform::Currency Qtd;
  platform::Currency Custo;
  platform::Date DataVal;  // the zero date for none

  /// The vehicle's accessories, in no order.
  RecordsetRef LerAcessorios() { return LerDaViatura(); }
  /// The accessories of all vehicles.
  RecordsetRef LerTodosAcessorios();
  RecordsetRef ListaDeCarros() { return {}; }

 protected:
  void LerCampos(const Row& row) override;
  void EscreverCampos(Row& row) const override;
};

}  // namespace zorCrmParvel
