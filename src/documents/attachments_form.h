#pragma once

#include <string>

#include "host/ficha.h"

namespace zorCrmParvel {

/// A ficha of what is kept beside one record. Whoever opens it sets `mybd`, the record's code and its kind,
/// by their names, and calls `mostra`.
class AttachmentsForm : public Ficha {
 public:
  std::int16_t Tipo = 0;  // kind of the record

  virtual void mostra() = 0;
  /// Members by name: the code's, `Tipo`, `mostra`.
  void Definir(std::string_view membro, const platform::Variant& valor) override;
  void Chamar(std::string_view rotina, const platform::Variant& argumento) override;

 protected:
  /// `codigo` is the derived ficha's member of the name `membro`.
  AttachmentsForm(const char* membro, std::string& codigo) : membro_(membro), codigo_(codigo) {}

 private:
  const char* membro_;
  std::string& codigo_;
};

}  // namespace zorCrmParvel
