#pragma once

#include "events/event_form.h"
#include "events/upkeep.h"

namespace zorCrmParvel {

/// The ficha of a visit to a workshop or an inspection centre. A save or removal computes the vehicle's total
/// cost anew.
class FichaDeVisita : public EventForm {
 protected:
  /// What counts in the total cost of a vehicle.
  using Total = platform::Currency (*)(const DataAccessRef& bd, const std::string& matricula);

  FichaDeVisita(const FichaDeEvento& tipo, std::unique_ptr<VisitaDaViatura> visita, Total total);

  /// The rows of kilometres, cost and notes, which follow those of the event's own.
  void LinhasDaVisita(int km, int custo, int obs);
  void DepoisDeGravar() override;
  void DepoisDeAnular() override;

  VisitaDaViatura& visita() const { return static_cast<VisitaDaViatura&>(entidade()); }

 private:
  Total total_;
};

/// The ficha of a maintenance revision; the total cost is that with revisions.
class Revisoes : public FichaDeVisita {
 public:
  Revisoes();
};

/// The ficha of a periodic inspection; the total cost is that without revisions.
class Inspecoes : public FichaDeVisita {
 public:
  Inspecoes();
};

/// The ficha of an accessory. A save or removal computes the vehicle's total cost anew, without revisions;
/// two labels tell how far the accessory has gone and what a kilometre of it cost.
class Acessorios : public EventForm {
 public:
  Acessorios();

  platform::DTPicker DTPicker2;  // validity; may be empty

 protected:
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
