#pragma once

#include "platform/host.h"
#include "platform/screen/dialogs.h"
#include "platform/screen/form.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"

namespace desktop_test {

/// The lookup of three drivers.
inline platform::ListaPesquisa DriverLookup() {
  const auto bd = testing_support::MemoryDatabase();
  testing_support::AddDriver(bd, "0001", "António Leão");
  testing_support::AddDriver(bd, "0012", "Maria-José Santos");
  testing_support::AddDriver(bd, "0020", "Zé");
  platform::ListaPesquisa lookup;
  bd->ObterLigacao(lookup.Ligacao);
  lookup.Sql = "SELECT Codigo AS Código, Nome FROM zor_Funcionarios ORDER BY Codigo";
  lookup.Titulo = "Motoristas";
  lookup.Carrega();
  lookup.Coluna(1).Width = 1000;
  lookup.Coluna(2).Width = 3000;
  return lookup;
}

/// A form with one control of each kind and the rules of a record screen: a code that must not be left empty,
/// a list behind it, Escape that steps back and leaves.
class SampleForm : public platform::Form {
 public:
  SampleForm() {
    Name = "Amostra";
    Caption = "Amostra de ficha";
    code.maxlength = 10;
    code.Validate = [this](bool& cancel) { cancel = code.Text.empty(); };
    code.PedidoLista = [this] {
      code.Text = DriverLookup().Escolhe();
      SendKeys("{TAB}");
    };
    cost.formato_campo = platform::zor_input::kNumero;
    cost.formato = "###,###.##0";
    kind.List = {"Terceiros", "Todos os riscos"};
    date.Value = platform::Date::FromParts(2024, 3, 15);
    confirm.Caption = "&Confirmar";
    confirm.Click = [this] { ++confirmed; };
    fail.Caption = "&Falhar";
    fail.Click = [] { throw platform::RuntimeError(platform::kTypeMismatch, "Amostra.Gravar"); };
    leave.Caption = "&Sair";
    leave.CausesValidation = false;
    leave.Click = [this] { Unload(); };
    for (platform::zor_input* field : {&code, &name})
      field->KeyPress = [this, field](int& key) {
        if (key != platform::kKeyEscape) return;
        key = platform::kKeyNone;
        if (field == &code)
          Unload();
        else
          SendKeys("+{TAB}");
      };
    title.Caption = "Código";
    until.Caption = "Validade";
    layout.head.rows = {{{.caption = &title, .field = &code, .description = &description}},
                        {{.field = &name}},
                        {{.field = &cost}, {.field = &fuel}},
                        {{.field = &kind}, {.caption = &until, .field = &date}}};
    layout.actions = {&confirm, &fail, &leave};
    layout.accent = &confirm;
    Load();
  }

  platform::Label title{*this, "Titulo", 0};
  platform::zor_input code{*this, "Campo", 0};
  platform::Label description{*this, "Titulo", 1};
  platform::Label until{*this, "Titulo", 2};
  platform::zor_input name{*this, "Campo", 1};
  platform::zor_input cost{*this, "Campo", 2};
  platform::CheckBox fuel{*this, "Check1"};
  platform::ComboBox kind{*this, "Combo1"};
  platform::DTPicker date{*this, "DTPicker1"};
  platform::PushButton confirm{*this, "btConf"};
  platform::PushButton fail{*this, "btFalhar"};
  platform::PushButton leave{*this, "btSair"};
  int confirmed = 0;
};

}  // namespace desktop_test
