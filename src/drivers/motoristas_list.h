#pragma once

#include <string>

#include "host/list_frame.h"

namespace zorCrmParvel {

/// The list of all drivers, inactive ones too.
class VwLstMotoristas : public ListFrame {
 public:
  void ICrmVwList_Editar(GridRow* row) override;
  void ICrmVwList_Novo() override;
  void ICrmVwList_Remover(GridRow* row) override;
  /// Removes a driver. A refusal of the database shows nothing.
  void AnularRegisto(const std::string& codigo);

 protected:
  std::string Titulo() const override { return "Motoristas"; }
  RecordsetRef AbrirLinhas() override;
  const std::vector<ColunaDeLista>& Colunas() const override;
};

}  // namespace zorCrmParvel
