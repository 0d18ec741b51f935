#pragma once

#include <string>

#include "platform/currency.h"

namespace platform {
class zor_input;
}

/// The few functions that fichas, lists and alerts share.
namespace zorCrmParvel::Tools {

/// The kinds of `Mensagem`.
enum Tipo : int { kCampoObrigatorio = 1, kAviso = 2, kOkCancelar = 3, kSimNaoCancelar = 4, kSimNao = 5 };

/// The message box of all fichas. `campo` is named by kind 1 alone, which has a text of its own. The answer
/// is the box's (1 OK, 2 Cancel, 6 Yes, 7 No), 0 for kinds 1 and 2; an unknown kind shows nothing and answers
/// 0.
int Mensagem(const std::string& campo, const std::string& texto, int tipo);

/// Two sentences of one message, joined as all messages join them: line feed, then carriage return.
std::string DuasFrases(const std::string& primeira, const std::string& segunda);

/// Quantity `a` per 100 km of the distance `b`; 0 when `b` is 0. Error 6 when it doesn't fit.
platform::Currency ConsumoMedio(platform::Currency a, platform::Currency b);
/// Cost `a` per km of the distance `b`; 0 when `b` is 0. Error 6 when it doesn't fit.
platform::Currency CustoPorKm(platform::Currency a, platform::Currency b);

/// 0 for an empty text. Error 13 for a text that is no number, blanks included.
platform::Currency TextoParaMoeda(const std::string& texto);
/// The same of a field's text; the source of the error names the field and the text.
platform::Currency TextoParaMoeda(const platform::zor_input& campo);

}  // namespace zorCrmParvel::Tools
