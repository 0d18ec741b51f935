#include "documents/attachments_form.h"

namespace zorCrmParvel {

using platform::Variant;

void AttachmentsForm::Definir(std::string_view membro, const Variant& valor) {
  if (membro == membro_)
    codigo_ = valor.ToText();
  else if (membro == "Tipo")
    Tipo = valor.ToInteger();
  else
    Ficha::Definir(membro, valor);
}

void AttachmentsForm::Chamar(std::string_view rotina, const Variant& argumento) {
  if (rotina != "mostra") return Ficha::Chamar(rotina, argumento);
  mostra();
}

}  // namespace zorCrmParvel
