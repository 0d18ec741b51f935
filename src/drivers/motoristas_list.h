#pragma once

#include <string>

#include "host/list_frame.h"

namespace zorCrmParvel {

/// The list of all drivers, inactive ones too.
class VwLstMotoristas : public ListFrame {
 public:
  /// Removes a driver. A refusal of the database shows nothing.
  void AnularRegisto(const std::string& codigo);

 protected:
  std::string Titulo() const override { return "Motoristas"; }
  RecordsetRef AbrirLinhas() override;
  const std::vector<ColunaDeLista>& Colunas() const override;
  const char* ColunaChave() const override { return "Codigo"; }
  std::unique_ptr<Ficha> FichaNova() override;
  std::unique_ptr<Ficha> FichaDe(const std::string& codigo, const GridRow& row) override;
  void Anular(const std::string& codigo, const GridRow& /*row*/) override { AnularRegisto(codigo); }
};

}  // namespace zorCrmParvel
