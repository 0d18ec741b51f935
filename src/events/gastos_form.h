#pragma once

#include "events/event_form.h"
#include "events/expense_figures.h"
#include "events/gastos.h"

namespace zorCrmParvel {

/// The ficha of an expense. Each field checks itself on being left; each save or removal computes the
/// vehicle's kilometres, consumption and costs anew from all its expenses.
class Gastos : public EventForm {
 public:
  Gastos();

  /// Km of the vehicle's latest fuel expense before a moment, 0 when there is none.
  platform::Currency KmDataAnterior(const std::string& matricula, platform::Date data) const;

 protected:
  void GuardarDaViatura(const clViaturas& viatura) override;
  void DepoisDeGravar() override;
  void DepoisDeAnular() override;
  void ValidarCampo(int indice, bool& cancel) override;
  void ReferenciaLida(const Referencia& referencia, CodeTable& entidade, bool aoValidar) override;

 private:
  platform::Currency Valor(int indice) const;
  void VazioPassaAZero(int indice);
  void CalcularCusto();
  static bool Passa(const char* mensagem, bool& cancel);
  void ValidarQuantidade(bool& cancel);
  void ValidarCusto(bool& cancel) const;
  void ValidarValorUnitario();
  void ValidarKm(bool& cancel);

  ResumoDeGastos resumo_;
  ResumoDeGastos::Inicio inicio_;  // of the last record loaded; 0 on a ficha that never loaded one
  bool combustivel_ = false;       // the expense's type is a fuel
};

}  // namespace zorCrmParvel
