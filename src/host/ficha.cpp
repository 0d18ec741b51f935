#include "host/ficha.h"

#include "host/form_catalog.h"

namespace zorCrmParvel {

using platform::PushButton;
using platform::RuntimeError;

void Ficha::CarregaFicha(const std::string&) { throw RuntimeError(platform::kNoSuchMember, Name); }

void Ficha::Definir(std::string_view membro, const platform::Variant&) {
  throw RuntimeError(platform::kNoSuchMember, Name + "." + std::string(membro));
}

void Ficha::Chamar(std::string_view rotina, const platform::Variant& argumento) {
  if (rotina != "CarregaFicha") throw RuntimeError(platform::kNoSuchMember, Name + "." + std::string(rotina));
  CarregaFicha(argumento.ToText());
}

void Ficha::AbrirArquivo(const std::string& numero, int tipo) {
  if (numero.empty()) return;
  const auto arquivo = FormCatalog::Shared().Make("frmArquivo");
  if (!arquivo) return;
  arquivo->mybd = mybd;
  arquivo->Definir("Numero", numero);
  arquivo->Definir("Tipo", tipo);
  arquivo->Load();
  arquivo->Chamar("mostra", platform::Variant());
  arquivo->ShowModal();
}

BotoesDaFicha::BotoesDaFicha(platform::Form& form)
    : btConf(form, "btConf"),
      btCancelar(form, "btCancelar"),
      btAnular(form, "btAnular"),
      btSair(form, "btSair"),
      btNavega(form, "btNavega", 4) {
  const auto texts = [](PushButton& button, const char* caption, const char* toolTip) {
    button.Caption = caption;
    button.ToolTipText = toolTip;
  };
  texts(btConf, "&Confirmar", "Confima a operação.");
  texts(btCancelar, "C&ancelar", "Cancala a operação.");
  texts(btAnular, "A&nular", "Anula a operação.");
  texts(btSair, "&Sair", "Abandonar a opção.");
  btSair.CausesValidation = false;
  const char* const arrows[] = {"Primeiro registo.", "Registo anterior.", "Próximo registo.",
                                "Último registo."};
  btNavega.Each([&](PushButton& button) {
    texts(button, "", arrows[button.Index()]);
    button.TabStop = false;  // Enter goes from the last field to the button that confirms
  });
}

void BotoesDaFicha::Dispor(platform::Layout& layout) {
  btNavega.Each([&](PushButton& button) { layout.navigation.push_back(&button); });
  layout.destructive = {&btAnular};
  layout.actions = {&btCancelar, &btConf, &btSair};
  layout.accent = &btConf;
}

}  // namespace zorCrmParvel
