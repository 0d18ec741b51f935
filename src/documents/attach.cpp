#include "documents/attach.h"

#include "host/one_row.h"

namespace zorCrmParvel {

Statement clAttach::Seleccao() const {
  return {"SELECT * ", " From zor_PV_Attach", " WHERE     (Id = N'", value(Id), "')"};
}

bool clAttach::Anular() {
  return Remover(mybd, {"Delete  From zor_PV_Attach ", " WHERE (Id ='", value(Id), "' )"});
}

bool clAttach::Ler() {
  return LerLinha(mybd, Seleccao(), [this](const Row& row) {
    Codigo = row.text("Codigo");
    Fx = row.text("Fx");
    Tipo = row.integer("Tipo");
    Id = row.number("Id");
  });
}

bool clAttach::Escrever() {
  EscreverLinha(mybd, Seleccao(), "Codigo", Codigo, [this](Row& row) {
    row.cut("Fx", Fx);
    row.put("Tipo", Tipo);
  });
  return true;
}

RecordsetRef clAttach::LerDocs() {
  RecordsetRef rs;
  mybd->AbrirLeitura("",
                     {"SELECT * ", " From zor_PV_Attach", " WHERE     (Codigo = N'", value(Codigo),
                      "' and Tipo=", value(Tipo), ")"},
                     rs);
  return rs;
}

}  // namespace zorCrmParvel
