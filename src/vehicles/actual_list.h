#pragma once

#include <string>

#include "host/list_frame.h"

namespace zorCrmParvel {

/// A list of what falls due at regular times, by `Tipo`: 1 tachograph downloads of vehicles, 2 those of
/// drivers, 3 road tax. It has no ficha: the one command of its rows' menu moves a row on to its next period.
class VwLstActual : public ListFrame {
 public:
  std::int16_t Tipo = 0;

  /// An unknown `Tipo` runs no statement.
  void ICrmVwList_Iniciar() override;
  /// Leaves "Actualizar" as the only command.
  void ICrmVwList_BeforePopUpViewListEdit(PopUpMenu& menu) override;
  /// Runs "Actualizar" on the current row. Error 13 when the date shown is none.
  void ICrmVwList_ExecutePopUpViewListEdit(PopUpMenu& menu) override;

 protected:
  std::string Titulo() const override;
  RecordsetRef AbrirLinhas() override;
  const std::vector<ColunaDeLista>& Colunas() const override;

 private:
  std::string Texto(const GridRow& row, const char* coluna) const;
  platform::Date ProximaDescarga(const GridRow& row) const;
  void ActualizarTacografo(const GridRow& row);
  void ActualizarMotorista(const GridRow& row);
  void ActualizarSelo(const GridRow& row);
};

}  // namespace zorCrmParvel
