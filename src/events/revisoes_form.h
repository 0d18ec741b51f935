#pragma once

#include "events/event_form.h"
#include "events/upkeep.h"

namespace zorCrmParvel {

/// The ficha of a maintenance revision. A save or removal computes the vehicle's total cost anew, revisions
/// included.
class Revisoes : public EventForm {
 public:
  Revisoes();

 protected:
  const char* RotinaCarrega() const override { return "CarregaRevisao"; }
  void MostrarCampos() override;
  void LevarCampos() override;
  void DepoisDeGravar() override;
  void DepoisDeAnular() override;

 private:
  clRevisoes& revisao() const { return static_cast<clRevisoes&>(entidade()); }
};

}  // namespace zorCrmParvel
