#pragma once

#include "events/event_form.h"
#include "events/incidents.h"

namespace zorCrmParvel {

/// The ficha of a fine or an accident: a vehicle, a driver, and no effect on the vehicle's figures.
class FichaDeIncidente : public EventForm {
 public:
  void Anular(std::int32_t id, const std::string& matricula) override;

  platform::CheckBox Check1;  // the driver answers for it

 protected:
  FichaDeIncidente(const FichaDeEvento& tipo, std::unique_ptr<Incidente> incidente, const char* dicaData);

  /// The row of the check box, which shows and fills a property of the record: 1 or 0.
  void LinhaDaResponsabilidade(const char* legenda, std::int16_t& propriedade);
  void MostrarCampos() override;
  void LevarCampos() override;
  void Limparform() override;

  Incidente& incidente() const { return static_cast<Incidente&>(entidade()); }

 private:
  std::int16_t* responsavel_ = nullptr;
};

class Multas : public FichaDeIncidente {
 public:
  Multas();
};

/// An accident's. A save always empties the screen.
class Sinistros : public FichaDeIncidente {
 public:
  Sinistros();

 protected:
  void DepoisDeGravar() override;
};

}  // namespace zorCrmParvel
