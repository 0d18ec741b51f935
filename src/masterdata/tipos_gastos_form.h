#pragma once

#include "masterdata/code_table_form.h"
#include "masterdata/tipos_gastos.h"

namespace zorCrmParvel {

/// The ficha of expense types: a code table's with the unit cost in `Campo(2)` and a mark for fuels. A change
/// of these two alone is not asked about on navigation.
class TiposGastos : public CodeTableForm {
 public:
  TiposGastos();

  platform::CheckBox Check1;

 protected:
  void LerFicha() override;
  void LevarCampos() override;
  void Limparform() override;

 private:
  clTiposGastos& tipo() const { return static_cast<clTiposGastos&>(entidade()); }
};

}  // namespace zorCrmParvel
