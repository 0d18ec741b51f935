#pragma once

#include "events/event_form.h"
#include "events/seguros.h"

namespace zorCrmParvel {

/// The ficha of a policy, which can be renewed: the screen then holds the next period, and the confirmation
/// also closes the policy that it follows.
class Seguros : public EventForm {
 public:
  Seguros();

  void Anular(std::int32_t id, const std::string& matricula) override;

  platform::DTPicker DTPicker2;  // start of validity; DTPicker1 is its end
  platform::ComboBox Combo1;     // "Anual", "Semestral"
  platform::CheckBox Check1;     // closed
  platform::PushButton btRenovar;

 protected:
  void Form_Load() override;
  void MostrarCampos() override;
  void LevarCampos() override;
  void Limparform() override;
  void btConf_Click() override;
  void btAnular_Click() override;

 private:
  clSeguros& seguro() const { return static_cast<clSeguros&>(entidade()); }
  void btRenovar_Click();
  void GravaRenovar();

  bool Renovar_ = false;         // a renewal is under way
  std::int32_t IdAnterior_ = 0;  // the policy being renewed
};

}  // namespace zorCrmParvel
