#pragma once

#include "masterdata/code_table.h"

namespace zorCrmParvel {

/// The expense types: a code table that also says whether a type is a fuel, and its usual unit cost.
class clTiposGastos : public CodeTableWithList {
 public:
  clTiposGastos();

  std::int16_t Combustivel = 0;  // 1: a fuel
  platform::Currency CustoUnit;

  /// An unknown code clears the name and the unit cost; the fuel mark keeps its last value.
  bool Ler() override;

 protected:
  Statement Seleccao() const override;
  void EscreverCampos(Row& row) const override;
};

}  // namespace zorCrmParvel
