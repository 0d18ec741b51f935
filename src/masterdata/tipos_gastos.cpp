#include "masterdata/tipos_gastos.h"

#include "host/one_row.h"

namespace zorCrmParvel {
namespace {

constexpr TabelaDeCodigos kTiposGastos{"zor_PV_TiposGastos", "Tipos de Gastos",
                                       "Listagem de Tipos de Gastos"};

}  // namespace

clTiposGastos::clTiposGastos() : CodeTableWithList(kTiposGastos) {}

Statement clTiposGastos::Seleccao() const {
  return {"SELECT * ", " From ", fixed(tabela()), " WHERE     (Codigo = N'", value(Codigo), "')"};
}

bool clTiposGastos::Ler() {
  const bool found = LerLinha(bd, Seleccao(), [this](const Row& row) {
    Descrição = row.text("Nome");
    Combustivel = row.integer("Combustivel");
    CustoUnit = row.currency("CustoUnit");
  });
  if (!found) {
    Descrição.clear();
    CustoUnit = 0;
  }
  return found;
}

void clTiposGastos::EscreverCampos(Row& row) const {
  CodeTable::EscreverCampos(row);
  row.put("Combustivel", Combustivel);
  row.put("CustoUnit", CustoUnit);
}

}  // namespace zorCrmParvel
