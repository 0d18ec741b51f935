#pragma once

#include "events/event_form.h"
#include "events/incidents.h"

namespace zorCrmParvel {

/// What the fichas of fines and accidents share: a vehicle, a driver, and no effect on the vehicle's figures.
class FichaComMotorista : public EventForm {
 public:
  void Anular(std::int32_t id, const std::string& matricula) override;

  platform::CheckBox Check1;  // the driver answers for it

 protected:
  FichaComMotorista(const TextosDoEvento& textos, std::unique_ptr<EventEntity> entidade);
  void Limparform() override;
};

class Multas : public FichaComMotorista {
 public:
  Multas();

 protected:
  const char* RotinaCarrega() const override { return "CarregaMulta"; }
  void MostrarCampos() override;
  void LevarCampos() override;
  void DepoisDeGravar() override;

 private:
  clMultas& multa() const { return static_cast<clMultas&>(entidade()); }
};

}  // namespace zorCrmParvel
