#pragma once

#include <string>

#include "platform/format.h"
#include "support/database_test.h"

namespace zorCrmParvel {

/// A database in memory, and records whose dates all fall due on one day; tests move the clock.
class AlertsFixture : public testing_support::RecordedTest {
 protected:
  static platform::Date Due() { return platform::Date::FromParts(2024, 3, 15); }

  void DaysToGo(int days) { host.clock = Due().AddDays(-days); }
  /// A date literal this many days after the due day.
  static std::string Day(int daysAfterDue = 0) {
    return "'" + platform::FormatDate(Due().AddDays(daysAfterDue), "yyyy.mm.dd") + "'";
  }

  /// A vehicle in service that is far from its revision by kilometres, in both forms.
  void Vehicle(const std::string& plate) {
    testing_support::AddVehicle(bd, plate);
    Sql("UPDATE zor_PV_Viaturas SET Categoria='LIGM', DataMatricula='2022.03.15', AnoMatricula=2022, "
        "KmActual=1000, KmPrxRev=9000 WHERE Matricula='" +
        plate + "'");
  }
  void Policy(const std::string& plate) {
    if (testing_support::Rows(bd, "SELECT Codigo FROM zor_PV_TiposSeguro").empty())
      Sql("INSERT INTO zor_PV_TiposSeguro (Codigo, Nome) VALUES ('DP', 'Danos próprios')");
    Sql("INSERT INTO zor_PV_Seguros (Matricula, TipoSeguro, Apolice, Validade, Inactiva) VALUES ('" + plate +
        "', 'DP', 'P-1', " + Day() + ", 0)");
  }
  void Accessory(const std::string& plate) {
    Sql("INSERT INTO zor_PV_Acessorios (Matricula, TipoAcessorio, Marca, DataVal) VALUES ('" + plate +
        "', 'EXTINTORES', 'Xis', " + Day() + ")");
  }
  /// An active driver without documents.
  void Driver(const std::string& code) { testing_support::AddDriver(bd, code, "Ana " + code); }
};

}  // namespace zorCrmParvel
