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
  const char* RotinaCarrega() const override { return "CarregaGasto"; }
  void MostrarCampos() override;
  void LevarCampos() override;
  void GuardarDaViatura(const clViaturas& viatura) override;
  void DepoisDeGravar() override;
  void DepoisDeAnular() override;
  void ValidarCampo(int indice, bool& cancel) override;
  void ReferenciaLida(const Referencia& referencia, CodeTable& entidade, bool aoValidar) override;
  bool ComRegras() const override { return Validar; }

 private:
  clGastos& gasto() const { return static_cast<clGastos&>(entidade()); }
  platform::Currency Valor(int indice) const;
  void VazioPassaAZero(int indice);
  void CalcularCusto();
  static bool Passa(const char* mensagem, bool& cancel);
  void ValidarQuantidade(bool& cancel);
  void ValidarCusto(bool& cancel) const;
  void ValidarValorUnitario();
  void ValidarKm(bool& cancel);

  ResumoDeGastos resumo_;

  // The vehicle's figures, as the last record loaded found them; 0 on a ficha that never loaded one.
  platform::Currency KmInicial;
  platform::Currency QtdInicial;
  std::int16_t Combustivel = 0;  // 1: the expense's type is a fuel
};

}  // namespace zorCrmParvel
