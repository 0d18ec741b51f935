#include "host/tools.h"

#include <gtest/gtest.h>

#include "host/error_text.h"
#include "platform/runtime_error.h"
#include "platform/screen/form.h"
#include "support/errors.h"
#include "support/scripted_host.h"

namespace zorCrmParvel {
namespace {

using platform::Currency;

TEST(Mensagem, KindDecidesTextButtonsAndAnswer) {
  testing_support::ScriptedHost host;
  const struct {
    int kind;
    const char* text;
    int style;
    int answer;
    int result;
  } cases[] = {{1, "Campo obrigatório [Matrícula].", 48, 1, 0},
               {2, "Olá", 64, 1, 0},
               {3, "Olá", 321, 2, 2},
               {4, "Olá", 579, 7, 7},
               {5, "Olá", 324, 6, 6}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.kind);
    host.ExpectBox(c.text, c.answer);
    EXPECT_EQ(Tools::Mensagem("Matrícula", "Olá", c.kind), c.result);
    EXPECT_EQ(host.boxes.back().style, c.style);
    EXPECT_EQ(host.boxes.back().title, "Informação");
  }
  EXPECT_EQ(Tools::Mensagem("x", "y", 0), 0);
  EXPECT_EQ(Tools::Mensagem("x", "y", 6), 0);
  EXPECT_EQ(host.boxes.size(), 5U) << "other kinds show nothing";
}

TEST(Tools, DivideInDoublePrecisionAndRoundToCurrency) {
  EXPECT_EQ(Tools::ConsumoMedio(40, 500), Currency(8));
  EXPECT_EQ(Tools::ConsumoMedio(5, 0), Currency(0));
  EXPECT_EQ(Tools::CustoPorKm(60, 500), Currency::FromTenThousandths(1200));
  EXPECT_EQ(Tools::CustoPorKm(1, 3), Currency::FromTenThousandths(3333));
  EXPECT_EQ(Tools::CustoPorKm(7, 0), Currency(0));
  EXPECT_THROW(Tools::ConsumoMedio(Currency::FromTenThousandths(INT64_MAX), Currency::FromTenThousandths(1)),
               platform::RuntimeError);
}

TEST(Tools, AnEmptyTextIsZeroAndATextThatIsNoNumberNamesItsField) {
  EXPECT_EQ(Tools::TextoParaMoeda(""), Currency(0));
  EXPECT_THROW(Tools::TextoParaMoeda(" "), platform::RuntimeError);
  platform::Form ficha;
  platform::Label legenda(ficha, "Legenda");
  platform::zor_input campo(ficha, "Campo");
  const auto erro = [&] {
    return TextOf(testing_support::FailureOf([&] { Tools::TextoParaMoeda(campo); })).message;
  };
  campo.Text = "1,5";
  EXPECT_EQ(Tools::TextoParaMoeda(campo), Currency::FromTenThousandths(15000));
  campo.Text = "12x";
  EXPECT_NE(erro().find("Um dos campos tem «12x», que não é o número"), std::string::npos);
  legenda.Caption = "Custo";
  ficha.layout.pages.resize(2);
  ficha.layout.pages[1].rows.push_back({{.caption = &legenda, .field = &campo}});
  EXPECT_NE(erro().find("O campo «Custo» tem «12x»"), std::string::npos);
  ficha.layout.head.rows.push_back({{.caption = &legenda, .field = &campo}});
  campo.Text = "9999999999999999";
  EXPECT_NE(erro().find("O campo «Custo» tem «9999999999999999», que é um número"), std::string::npos);
}

}  // namespace
}  // namespace zorCrmParvel
