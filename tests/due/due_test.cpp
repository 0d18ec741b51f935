#include <gtest/gtest.h>

#include "drivers/motoristas.h"
#include "due/handled.h"
#include "due/month.h"
#include "events/seguros.h"
#include "platform/runtime_error.h"
#include "support/database_test.h"
#include "vehicles/viaturas.h"

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
  auto open = due::HandlingsOf(bd, "AlertasAp", today);
  ASSERT_EQ(open.size(), 2U);
  EXPECT_EQ(open["12-AB-34|A1|01-01-2024"].Words(), "Adiado até 18-03-2024: à espera d'orçamento");
  EXPECT_EQ(open["99-ZZ-99|B|01-01-2024"].Words(), "Tratado");
  EXPECT_EQ(due::HandlingsOf(bd, "AlertasAp", today.AddDays(3)).size(), 1U);
  due::Reopen(bd, "AlertasAp", "99-ZZ-99|B|01-01-2024");
  EXPECT_EQ(due::HandlingsOf(bd, "AlertasAp", today).size(), 1U);
  EXPECT_THROW(due::Handle(bd, "AlertasAp", "x", {.until = today, .note = "", .who = "", .when = today}),
               platform::RuntimeError);
}

TEST_F(DueTest, AMonthHoldsWhatIsDueInIt) {
  AddFleet(bd, 0);
  AddVehicle(bd, "99-ZZ-99");
  clViaturas vehicle;
  vehicle.bd = bd;
  vehicle.Matricula = "12-AB-34";
  vehicle.Ler();
  vehicle.DataPrxInsp = Date::FromParts(2024, 3, 31, 12);
  vehicle.DataPrxRev = Date::FromParts(2024, 4, 1);
  vehicle.Escrever();
  vehicle.Matricula = "99-ZZ-99";
  vehicle.Ler();
  vehicle.DataPrxInsp = Date::FromParts(2024, 3, 10);
  vehicle.Inactiva = 1;
  vehicle.Escrever();
  EventOf<clSeguros> policy(bd, "12-AB-34");
  policy.Validade = Date::FromParts(2024, 3, 1);
  policy.Escrever();
  clMotoristas driver;
  driver.bd = bd;
  driver.Codigo = "1";
  driver.Ler();
  driver.ValCartaCond = Date::FromParts(2024, 3, 5);
  driver.Escrever();
  std::string shown;
  for (const due::DueDate& date :
       due::DueBetween(bd, Date::FromParts(2024, 3, 1), Date::FromParts(2024, 3, 31)))
    shown +=
        std::to_string(date.day.day()) + " " + date.what + " " + date.record + (date.driver ? " *\n" : "\n");
  EXPECT_EQ(shown, "1 Apólice 12-AB-34\n5 Carta de condução Ana *\n31 Inspecção 12-AB-34\n");
}

}  // namespace
}  // namespace zorCrmParvel
