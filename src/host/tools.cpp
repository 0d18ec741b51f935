#include "host/tools.h"

#include "platform/host.h"

namespace zorCrmParvel::Tools {

using platform::Currency;
using platform::MsgBox;

int Mensagem(const std::string& campo, const std::string& texto, int tipo) {
  static const std::string kTitulo = "Informação";
  switch (tipo) {
    case kCampoObrigatorio:
      MsgBox("Campo obrigatório [" + campo + "].", platform::kExclamation, kTitulo);
      return 0;
    case kAviso:
      MsgBox(texto, platform::kInformation, kTitulo);
      return 0;
    case kOkCancelar:
      return MsgBox(texto, platform::kOkCancel + platform::kInformation + platform::kDefaultButton2, kTitulo);
    case kSimNaoCancelar:
      return MsgBox(texto, platform::kYesNoCancel + platform::kInformation + platform::kDefaultButton3,
                    kTitulo);
    case kSimNao:
      return MsgBox(texto, platform::kYesNo + platform::kInformation + platform::kDefaultButton2, kTitulo);
    default:
      return 0;
  }
}

std::string DuasFrases(const std::string& primeira, const std::string& segunda) {
  return primeira + "\n\r" + segunda;
}

Currency ConsumoMedio(Currency a, Currency b) {
  if (b == 0) return 0;
  return Currency::FromDouble(platform::Divide(a.ToDouble(), b.ToDouble() / 100));
}

Currency CustoPorKm(Currency a, Currency b) {
  if (b == 0) return 0;
  return Currency::FromDouble(platform::Divide(a.ToDouble(), b.ToDouble()));
}

Currency TextoParaMoeda(const std::string& texto) {
  return texto.empty() ? Currency() : Currency::Parse(texto);
}

}  // namespace zorCrmParvel::Tools
