#include "masterdata/tipos_gastos.h"

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
  RecordsetRef rs;
  bd->AbrirLeitura("", Seleccao(), rs);
  const bool found = !rs->Eof();
  if (found) {
    const Row row(*rs);
    Descrição = row.text("Nome");
    Combustivel = row.integer("Combustivel");
    CustoUnit = row.currency("CustoUnit");
  } else {
    Descrição.clear();
    CustoUnit = 0;
  }
  rs->Close();
  return found;
}

void clTiposGastos::EscreverCampos(Row& row) const {
  CodeTable::EscreverCampos(row);
  row.put("Combustivel", Combustivel);
  row.put("CustoUnit", CustoUnit);
}

}  // namespace zorCrmParvel
