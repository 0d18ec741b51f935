#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/list_frame.h"

namespace zorCrmParvel {

/// The list of all vehicles, those out of service too. A vehicle whose codes are lost is listed without their
/// names.
class VwLstViaturas : public ListFrame {
 public:
  /// Removes a vehicle with its events, after a warning for each kind that it has; an answer but OK keeps
  /// all. Without events nothing is asked: whoever calls has asked already.
  void AnularViatura(const std::string& matricula);

 protected:
  std::string Titulo() const override { return "Viaturas"; }
  RecordsetRef AbrirLinhas() override;
  const std::vector<ColunaDeLista>& Colunas() const override;
  const char* ColunaChave() const override { return "Matricula"; }
  std::unique_ptr<Ficha> FichaNova() override;
  std::unique_ptr<Ficha> FichaDe(const std::string& matricula, const GridRow& row) override;
  void Anular(const std::string& matricula, const GridRow& /*row*/) override { AnularViatura(matricula); }
};

}  // namespace zorCrmParvel
