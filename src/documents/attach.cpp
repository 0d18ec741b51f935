#include "documents/attach.h"

#include "host/row.h"

namespace zorCrmParvel {

Statement clAttach::Seleccao() const {
  return {"SELECT * ", " From zor_PV_Attach", " WHERE     (Id = N'", value(Id), "')"};
}

bool clAttach::Anular() {
  try {
    mybd->ExecutarSql("", {"Delete  From zor_PV_Attach ", " WHERE (Id ='", value(Id), "' )"});
    return true;
  } catch (const platform::RuntimeError&) {
    return false;  // the record stays, and the caller says nothing
  }
}

bool clAttach::Ler() {
  RecordsetRef rs;
  mybd->AbrirLeitura("", Seleccao(), rs);
  const bool found = !rs->Eof();
  if (found) {
    const Row row(*rs);
    Codigo = row.text("Codigo");
    Fx = row.text("Fx");
    Tipo = row.integer("Tipo");
    Id = row.number("Id");
  }
  rs->Close();
  return found;
}

bool clAttach::Escrever() {
  RecordsetRef rs;
  mybd->AbrirEdicao(Seleccao(), rs);
  Row row(*rs);
  if (rs->Eof()) {
    rs->AddNew();
    row.cut("Codigo", Codigo);
  }
  row.cut("Fx", Fx);
  row.put("Tipo", Tipo);
  rs->Update();
  rs->Close();
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
