#include "masterdata/tipos_gastos_form.h"

#include "host/tools.h"

namespace zorCrmParvel {
namespace {

constexpr TextosDaFicha kTiposGastos{"TiposGastos",
                                     "Tipos de Gastos",
                                     "Vai proceder à anulação do Tipo de Gasto!",
                                     "A informação relativa do Tipo de Gasto foi alterada.",
                                     "Código do Tipo de Gasto.",
                                     "Designação do Tipo de Gasto.",
                                     "Lista de Tipos de Gastos."};

}  // namespace

TiposGastos::TiposGastos()
    : CodeTableForm(kTiposGastos, std::make_unique<clTiposGastos>()), Check1(*this, "Check1") {
  platform::zor_input& custo = NovoCampo(2, "Custo Unitário", 10);
  custo.formato_campo = platform::zor_input::kNumero;
  custo.formato = "###,###.##0";
  custo.ToolTipText = "Código do Tipo de Gasto.";
  Check1.Caption = "Combustível";
  TabBefore(Check1, botoes.btConf);
  layout.head.rows.push_back({{.field = &Check1}});
  Check1.KeyPress = [this](int& keyCode) {
    if (keyCode == platform::kKeyEnter) SendKeys("{TAB}");
    if (keyCode == platform::kKeyEscape) SendKeys("+{TAB}");
  };
}

void TiposGastos::LerFicha() {
  CodeTableForm::LerFicha();
  Check1.Value = tipo().Combustivel == 1 ? 1 : 0;
  Campo[2].Text = tipo().CustoUnit.ToText();
}

void TiposGastos::LevarCampos() {
  CodeTableForm::LevarCampos();
  tipo().Combustivel = Check1.Value == 1 ? 1 : 0;
  tipo().CustoUnit = Tools::TextoParaMoeda(Campo[2]);
}

void TiposGastos::Limparform() {
  CodeTableForm::Limparform();
  Campo[2].Text.clear();
  Check1.Value = 0;
}

}  // namespace zorCrmParvel
