#pragma once

#include "platform/screen/control.h"

namespace platform {

/// The input field of all fichas. `Text` is what the user typed; `DisplayText` is what the field shows.
class zor_input : public Control {
 public:
  using Control::Control;

  enum FormatoCampo { kTexto = 0, kInteiro = 1, kNumero = 2 };

  std::string Text;
  int SelStart = 0;   // of the selection, in UTF-16 units like all that counts characters here
  int SelLength = 0;  // 0 is the caret alone
  int maxlength = 0;  // characters; 0 is no limit
  FormatoCampo formato_campo = kTexto;
  int tipo_campo = 0;   // 1: several lines
  std::string formato;  // mask of a number, see FormatNumber

  std::function<void()> Change;       // the text changed under the user's hands
  std::function<void()> PedidoLista;  // F3: the list of what can stand here
  std::function<void()> PedidoFicha;  // F4: the ficha of the code
  std::function<void()> PedidoMapa;   // F7: the table on paper

  bool Numeric() const { return formato_campo != kTexto; }
  /// The text by the field's mask when it is a number, else as it stands. For a field without the focus.
  std::string DisplayText() const;
  /// Why the field can't be left with its text, for the user to read; empty when it can. A number whose
  /// grouping marks don't part its digits in threes is refused: "40.5" would be read as 405.
  std::string Objection() const;
  /// True when a text is not longer than the field takes.
  bool Fits(const std::string& text) const;
  void SelectAll();
};

}  // namespace platform
