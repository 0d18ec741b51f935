#include "host/tools.h"

#include "host/error_text.h"
#include "platform/host.h"
#include "platform/screen/form.h"

namespace zorCrmParvel::Tools {

using platform::Currency;
using platform::MsgBox;

namespace {

/// The caption that the layout of the form puts before a field; empty without one.
std::string LegendaDe(const platform::zor_input& campo) {
  const auto procura = [&](const platform::LayoutBlock& bloco) -> const platform::Label* {
    for (const platform::LayoutRow& linha : bloco.rows)
      for (const platform::LayoutField& lugar : linha)
        if (lugar.field == &campo) return lugar.caption;
    return nullptr;
  };
  const platform::Layout& layout = campo.form().layout;
  const platform::Label* legenda = procura(layout.head);
  for (std::size_t i = 0; legenda == nullptr && i < layout.pages.size(); ++i)
    legenda = procura(layout.pages[i]);
  return legenda == nullptr ? std::string() : legenda->Caption;
}

}  // namespace

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

Currency TextoParaMoeda(const platform::zor_input& campo) {
  try {
    return TextoParaMoeda(campo.Text);
  } catch (const platform::RuntimeError& error) {
    throw platform::RuntimeError(error.number(), SourceInField(LegendaDe(campo), campo.Text),
                                 error.description());
  }
}

}  // namespace zorCrmParvel::Tools
