// What holds for every ficha that the catalogue knows.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "host/form_catalog.h"
#include "host/sistema.h"
#include "support/scripted_host.h"

namespace zorCrmParvel {
namespace {

using platform::Control;

const char* const kFichas[] = {
    "Viaturas",   "Motoristas",  "Multas",          "Inspecoes", "Acessorios",    "Sinistros",  "Seguros",
    "Revisoes",   "Gastos",      "Categorias",      "Modelos",   "Departamentos", "TiposManut", "TiposGastos",
    "Companhias", "TiposSeguro", "TiposAcessorios", "Viagens",   "Marcas",        "frmArquivo", "frm_Attach"};

char Mnemonic(const std::string& caption) {
  const auto mark = caption.find('&');
  return mark == std::string::npos || mark + 1 == caption.size()
             ? '\0'
             : static_cast<char>(std::tolower(static_cast<unsigned char>(caption[mark + 1])));
}

/// The controls of a block that the user goes through, from left to right and from top to bottom.
void Read(const platform::LayoutBlock& block, std::vector<const Control*>& order) {
  const auto fields = [&] {
    for (const platform::LayoutRow& row : block.rows)
      for (const platform::LayoutField& field : row) order.push_back(field.field);
  };
  if (block.fieldsFirst) fields();
  order.push_back(block.grid);
  order.push_back(block.calendar);
  if (!block.fieldsFirst) fields();
  for (const platform::PushButton* button : block.buttons) order.push_back(button);
}

class ReadingOrderTest : public testing::TestWithParam<const char*> {
 protected:
  testing_support::ScriptedHost host;
  Sistema sistema;
  std::unique_ptr<Ficha> ficha = FormCatalog::Shared().Make(GetParam());
};

TEST_P(ReadingOrderTest, NoTwoButtonsInSightShareALetter) {
  std::map<char, std::vector<const platform::PushButton*>> letters;
  for (const Control* control : ficha->Controls())
    if (const auto* button = dynamic_cast<const platform::PushButton*>(control))
      if (const char letter = Mnemonic(button->Caption)) letters[letter].push_back(button);
  for (const auto& [letter, buttons] : letters)
    for (std::size_t i = 0; i < buttons.size(); ++i)
      for (std::size_t j = i + 1; j < buttons.size(); ++j)
        EXPECT_TRUE(buttons[i]->Container != nullptr && buttons[j]->Container != nullptr &&
                    buttons[i]->Container != buttons[j]->Container)
            << buttons[i]->Caption << " and " << buttons[j]->Caption;
}

TEST_P(ReadingOrderTest, TabGoesThroughTheFieldsAsTheyAreRead) {
  std::vector<const Control*> read;
  Read(ficha->layout.head, read);
  if (ficha->layout.tabs != nullptr) read.push_back(ficha->layout.tabs);
  for (const platform::LayoutBlock& page : ficha->layout.pages) Read(page, read);
  const auto& controls = ficha->Controls();
  const auto place = [&](const Control* control) {
    return std::find(controls.begin(), controls.end(), control);
  };
  const Control* before = nullptr;
  for (const Control* control : read) {
    if (control == nullptr || !control->TakesFocus() || !control->TabStop) continue;
    const bool sees =
        before == nullptr || before->Container == nullptr || control->Container == before->Container;
    if (before != nullptr && sees) {
      EXPECT_LT(place(before), place(control))
          << before->Name() << before->Index() << " before " << control->Name() << control->Index();
    }
    before = control;
  }
}

INSTANTIATE_TEST_SUITE_P(All, ReadingOrderTest, testing::ValuesIn(kFichas),
                         [](const auto& test) { return std::string(test.param); });

}  // namespace
}  // namespace zorCrmParvel
