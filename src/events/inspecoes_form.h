#pragma once

#include "events/event_form.h"
#include "events/upkeep.h"

namespace zorCrmParvel {

/// The ficha of a periodic inspection. A save or removal computes the vehicle's total cost anew, without
/// revisions.
class Inspecoes : public EventForm {
 public:
  Inspecoes();

 protected:
  const char* RotinaCarrega() const override { return "CarregaInspecao"; }
  void MostrarCampos() override;
  void LevarCampos() override;
  void DepoisDeGravar() override;
  void DepoisDeAnular() override;
  platform::Control& PrimeiroCampo() override { return DTPicker1; }

 private:
  clInspecoes& inspecao() const { return static_cast<clInspecoes&>(entidade()); }
};

}  // namespace zorCrmParvel
