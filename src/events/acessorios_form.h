#pragma once

#include "events/event_form.h"
#include "events/upkeep.h"

namespace zorCrmParvel {

/// The ficha of an accessory. A save or removal computes the vehicle's total cost anew, without revisions;
/// two labels tell how far the accessory has gone and what a kilometre of it cost.
class Acessorios : public EventForm {
 public:
  Acessorios();

  platform::DTPicker DTPicker2;  // validity; may be empty

 protected:
  const char* RotinaCarrega() const override { return "CarregaAcessorio"; }
  void GuardarDaViatura(const clViaturas& viatura) override;
  void MostrarCampos() override;
  void LevarCampos() override;
  void Limparform() override;
  void DepoisDeGravar() override;
  void DepoisDeAnular() override;

 private:
  clAcessorios& acessorio() const { return static_cast<clAcessorios&>(entidade()); }
  void MostrarPercurso();

  platform::Currency kmActual_;  // of the vehicle of the record in hand
};

}  // namespace zorCrmParvel
