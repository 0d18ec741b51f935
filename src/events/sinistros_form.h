#pragma once

#include "events/incidents.h"
#include "events/multas_form.h"

namespace zorCrmParvel {

/// The ficha of an accident.
class Sinistros : public FichaComMotorista {
 public:
  Sinistros();

 protected:
  const char* RotinaCarrega() const override { return "CarregaSinistro"; }
  void MostrarCampos() override;
  void LevarCampos() override;
  void DepoisDeGravar() override;

 private:
  clSinistros& sinistro() const { return static_cast<clSinistros&>(entidade()); }
};

}  // namespace zorCrmParvel
