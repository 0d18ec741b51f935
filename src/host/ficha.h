#pragma once

#include <string>
#include <string_view>

#include "host/data_access.h"
#include "platform/screen/form.h"

namespace zorCrmParvel {

/// What every record screen shares: the data-access object that its opener sets before the form does anything
/// with a record, and members reached by name, so that screens of different rooms need not know one another.
class Ficha : public platform::Form {
 public:
  DataAccessRef mybd;

  /// Shows the record of a code. Error 438 on fichas that aren't reached by a code.
  virtual void CarregaFicha(const std::string& codigo);
  /// Sets a public member by its name. Error 438 when the ficha has none of this name.
  virtual void Definir(std::string_view membro, const platform::Variant& valor);
  /// Calls a public routine by its name. Error 438 when the ficha has none of this name.
  virtual void Chamar(std::string_view rotina, const platform::Variant& argumento);

 protected:
  /// Shows the digital archive of a record, by its code and kind. Does nothing without a code.
  void AbrirArquivo(const std::string& numero, int tipo);
};

/// The read behind an arrow button: first, previous, next, last by its number. Other numbers read nothing.
template <typename Entity>
void LerPelaSeta(Entity& entidade, int indice) {
  if (indice == 0)
    entidade.LerPrimeiro();
  else if (indice == 1)
    entidade.LerAnterior();
  else if (indice == 2)
    entidade.LerProximo();
  else if (indice == 3)
    entidade.LerUltimo();
}

/// The buttons that every ficha has, with their texts: four arrows, and the row that confirms, cancels,
/// removes and leaves. A ficha gives them their handlers.
struct BotoesDaFicha {
  explicit BotoesDaFicha(platform::Form& form);
  /// Puts the buttons in their places of a form's layout.
  void Dispor(platform::Layout& layout);

  platform::PushButton btConf;
  platform::PushButton btCancelar;
  platform::PushButton btAnular;
  platform::PushButton btSair;
  platform::ControlArray<platform::PushButton> btNavega;
};

}  // namespace zorCrmParvel
