#include <gtest/gtest.h>

#include "due/handled.h"
#include "due/month.h"
#include "platform/runtime_error.h"
#include "support/database_test.h"
#include "support/sample_fleet.h"
#include "support/whole_text.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;
using platform::Date;

class DueTest : public DatabaseTest {};

TEST_F(DueTest, WhatWasDoneHoldsUntilItsDayAndForThatDateAlone) {
  const Date today = platform::Today();
  due::Handle(bd, "AlertasAp", "12-AB-34|A1|01-01-2024",
              {.until = today.AddDays(3), .note = "à espera d'orçamento", .who = "ana", .when = today});
  due::Handle(bd, "AlertasAp", "99-ZZ-99|B|01-01-2024",
              {.until = {}, .note = "", .who = "rui", .when = today});
  due::Handle(bd, "AlertasRev", "12-AB-34|x", {.until = {}, .note = "", .who = "rui", .when = today});
  due::Handle(bd, "AlertasRev", "12-AB-34|x",
              {.until = {}, .note = "sim", .who = "ana", .when = today.AddDays(1)});
  EXPECT_EQ(Rows(bd, "SELECT * FROM parvel_tratados WHERE Lista='AlertasRev'"),
            (Table{{"AlertasRev", "12-AB-34|x", "NULL", "sim", "ana", "16-03-2024"}}));
  const due::Handling read = due::HandlingsOf(bd, "AlertasRev", today).at("12-AB-34|x");
  EXPECT_EQ(read.note + read.who + read.when.ToText(), "simana16-03-2024");
  auto open = due::HandlingsOf(bd, "AlertasAp", today);
  ASSERT_EQ(open.size(), 2U);
  EXPECT_EQ(open["12-AB-34|A1|01-01-2024"].Words(), "Adiado até 18-03-2024: à espera d'orçamento");
  EXPECT_EQ(open["99-ZZ-99|B|01-01-2024"].Words(), "Tratado");
  EXPECT_EQ(due::HandlingsOf(bd, "AlertasAp", today.AddDays(3)).size(), 1U);
  due::Reopen(bd, "AlertasAp", "99-ZZ-99|B|01-01-2024");
  EXPECT_EQ(due::HandlingsOf(bd, "AlertasAp", today).size(), 1U);
  EXPECT_THROW(due::Handle(bd, "AlertasAp", "x", {.until = today, .note = "", .who = "", .when = today}),
               platform::RuntimeError);
  due::Handling noted{.until = {}, .note = std::string(200, 'n'), .who = "", .when = today};
  due::Handle(bd, "AlertasAp", "x", noted);
  noted.note += "n";
  EXPECT_THROW(due::Handle(bd, "AlertasAp", "x", noted), platform::RuntimeError);
  EXPECT_EQ(due::AlertOf({std::string(100, 'a'), "b", std::string(30, 'c')}),
            std::string(100, 'a') + "|b|" + std::string(17, 'c'));
}

TEST_F(DueTest, AnAlertIsKnownByTheSameColumnsInEveryVersion) {
  std::string known;
  for (const char* list : {"Ap", "Rev", "Insp", "Acess", "Mot", "Viat", "?"}) {
    known += std::string(list) + ":";
    for (const char* column : due::AlertColumns("Alertas" + std::string(list)))
      known += std::string(" ") + column;
    known += "\n";
  }
  EXPECT_EQ(known,
            "Ap: Matricula Apolice Data\nRev: Matricula KmPrxRev DataPrxRev\nInsp: Matricula DataPrx\n"
            "Acess: Id Data\nMot: Codigo Documento Data\nViat: Matricula Notas Data\n?:\n");
}

TEST_F(DueTest, ADatabaseWithoutTheTableHasNothingDealtWith) {
  EXPECT_TRUE(due::HandlingsOf(BareDatabase(), "AlertasAp", platform::Today()).empty());
  Sql("INSERT INTO parvel_tratados (Lista, Registo) VALUES (N'AlertasAp', N'x')");
  const due::Handling bare = due::HandlingsOf(bd, "AlertasAp", platform::Today()).at("x");
  EXPECT_EQ(bare.Words() + bare.who + bare.when.ToText(), "Tratado" + Date().ToText());
}

TEST_F(DueTest, WhatIsDueBetweenTwoDaysIsAllThatHasADate) {
  AddSampleFleet(bd);
  Sql("UPDATE zor_PV_Viaturas SET Inactiva=1 WHERE Matricula='B'");
  Sql("UPDATE zor_PV_Viaturas SET SeloPago=1, Tacografo=0 WHERE Matricula='C'");
  Sql("UPDATE zor_PV_Seguros SET Inactiva=1 WHERE Seg_Id=4");
  Sql("UPDATE zor_Funcionarios SET Inactivo=1 WHERE Codigo='B'");
  Sql("UPDATE zor_Funcionarios SET BI='', CartaoCid='', NoCartaoCondutor='' WHERE Codigo='C'");
  const auto shown = [&](Date from, Date to) {
    std::string text;
    for (const due::DueDate& date : due::DueBetween(bd, from, to))
      text += date.day.ToText() + " " + date.what + " " + date.record + " " + date.code +
              (date.driver ? " *\n" : "\n");
    return text;
  };
  ExpectWholeText(PARVEL_SOURCE_DIR "/tests/due/between.txt",
                  shown(Date::FromParts(2000, 1, 1), Date::FromParts(2100, 1, 1)));
  EXPECT_EQ(shown(Date::FromParts(2024, 3, 28), Date::FromParts(2024, 3, 28)),
            "28-03-2024 Carta de condução Nome2 C *\n");
  EXPECT_EQ(shown(Date::FromParts(2024, 3, 29), Date::FromParts(2024, 3, 29)), "");
}

}  // namespace
}  // namespace zorCrmParvel
