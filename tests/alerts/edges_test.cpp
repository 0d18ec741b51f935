// What lists, counts, checks and feed tell of a fleet, on every edge of the bands and for every column that
// may be otherwise, held against a text.
#include <map>

#include "alerts/alert_list.h"
#include "alerts/alert_rules.h"
#include "alerts/alerts_fixture.h"
#include "host/sistema.h"
#include "support/grid_window.h"
#include "support/state_text.h"
#include "support/whole_text.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

const std::string kVehicle = "UPDATE zor_PV_Viaturas SET ";
const std::string kDriver = "UPDATE zor_Funcionarios SET ";
const std::string kNoPaper = kDriver +
                             "BI='', CartaoCid='', ValCartaCond=NULL, ValidadePassa=NULL, "
                             "NoCartaoCondutor=''; Delete zor_CartasCond; ";

class AlertEdgesTest : public AlertsFixture {
 protected:
  using Told = std::map<std::string, std::string>;

  /// A vehicle and a driver of whom everything is due on one day.
  void NewFleet() {
    bd = platform::MakeRef<RecordingDataAccess>(MemoryDatabase());
    Vehicle("A");
    Policy("A");
    Accessory("A");
    Driver("1");
    Sql(kVehicle + "SeloPago=0, Tacografo=1, DataPrxRev=" + Day() + ", DataSelo=" + Day() +
        ", DtDescarga=" + Day());
    Sql(kDriver + "BI='7', DataValBI=" + Day() + ", CartaoCid='8', ValCartaoCid=" + Day() +
        ", ValCartaCond=" + Day() + ", ValidadePassa=" + Day() +
        ", NoCartaoCondutor='9', DtFimCartaoCondutor=" + Day() + ", DtDescarga=" + Day());
    for (const char* tipo : {"0", "4", "9"}) Class(tipo);
  }
  void Class(const std::string& tipo) {
    Sql("INSERT INTO zor_CartasCond (Motorista, TipoCarta, DataValidade) VALUES ('1', " + tipo + ", " +
        Day() + ")");
  }
  /// Statements, parted by semicolons; "Day" is the day on which all is due.
  void Change(std::string changes) {
    for (std::size_t at = 0; (at = changes.find("Day", at)) != std::string::npos;)
      changes.replace(at, 3, Day());
    for (std::size_t end = 0; !changes.empty(); changes.erase(0, end + 2)) {
      end = std::min(changes.find("; "), changes.size() - 1);
      Sql(changes.substr(0, changes[end] == ';' ? end : end + 1));
    }
  }

  std::string List(const std::string& key) const {
    Sistema sistema;
    sistema.ICrmSistema_ZorDataAccess = bd;
    GridWindow window;
    const auto list = sistema.MostraListas(key);
    const std::string error = ErrorOf([&] { window.Start(*list); });
    if (!error.empty()) return error;
    ContagemDeAlertas shown{window.grid.RowCount(), 0, 0, 0};
    for (long row = 0; row < shown.linhas; ++row) {
      const platform::GridStyle* style = window.grid.StyleOf(row);
      const Tools::Faixa faixa = FaixaDoEstilo(style == nullptr ? "" : style->name);
      shown.passadas += faixa == Tools::Faixa::kPassada ? 1 : 0;
      shown.muitoBreves += faixa == Tools::Faixa::kMuitoBreve ? 1 : 0;
      shown.breves += faixa == Tools::Faixa::kBreve ? 1 : 0;
    }
    EXPECT_EQ(dynamic_cast<AlertList&>(*list).Contar(), shown) << "the count, by the colours of " << key;
    return RowsOf(window.grid);
  }
  /// The answers when "no" and when "yes" came, each with the number of statements.
  std::string Answers(void (*check)(const DataAccessRef&, bool&)) const {
    std::string answers;
    for (const bool onEntry : {false, true}) {
      bool alerta = onEntry;
      bd->statements.clear();
      const std::string error = ErrorOf([&] { check(bd, alerta); });
      answers += std::string(alerta ? " sim " : " não ") + std::to_string(bd->statements.size()) + error;
    }
    return answers;
  }
  std::string Feed() const {
    const auto rows = platform::MakeRef<platform::MemoryRecordset>();
    for (const char* field : {"APLICACAO", "Entidade", "Texto"})
      rows->Append(field, platform::FieldType::kText, 50);
    rows->Open();
    Sistema sistema;
    sistema.ICrmSistema_ZorDataAccess = bd;
    RecordsetRef alertas = rows;
    std::string told = ErrorOf([&] { sistema.ICrmSistema_AlertasAdd(alertas); });
    for (const auto& row : Rows(alertas)) told += " " + row[0] + ":" + row[1] + ":" + row[2];
    return told;
  }
  Told Now() const {
    Told told;
    for (const char* key :
         {"AlertasAp", "AlertasRev", "AlertasInsp", "AlertasAcess", "AlertasMot", "AlertasViat"})
      told[key] = List(key);
    told["apólices"] = Answers(Tools::VerificaAlertasApolices);
    told["revisões"] = Answers(Tools::VerificaAlertasRevisoes);
    told["inspecções"] = Answers(Tools::VerificaAlertasInspecoes);
    told["acessórios"] = Answers(Tools::VerificaAlertasAcessorios);
    told["motoristas"] = Answers(Tools::VerificaAlertasMotoristas);
    told["todos"] = Feed();
    return told;
  }
};

TEST_F(AlertEdgesTest, AreAsWrittenDown) {
  std::string text;
  std::map<int, Told> plain;
  for (const int days : {-1, 0, 5, 9, 10, 29, 30, 31, 100}) {
    NewFleet();
    DaysToGo(days);
    text += "= em " + std::to_string(days) + " dias\n";
    plain[days] = Now();
    for (const auto& [what, told] : plain[days]) text += "  " + what + ": " + told + "\n";
  }
  std::vector<std::string> changes;
  for (const char* km : {"8999", "9999", "10000", "10499", "10500", "10999", "11000", "NULL"})
    changes.push_back(kVehicle + "DataPrxRev=NULL, KmActual=10000, KmPrxRev=" + km);
  for (const char* km : {"20999", "21000", "21000.5", "21000.6", "21001", "NULL"})
    changes.push_back(kVehicle + "DataPrxRev=NULL, Inactiva=1, KmPrxRev=20000, KmActual=" + km);
  for (const char* change :
       {"Inactiva=1", "Inactiva=NULL", "Marca='NADA'", "SeloPago=1", "SeloPago=NULL", "DataSelo=NULL",
        "Tacografo=0", "DtDescarga=NULL", "DataPrxRev=NULL", "Categoria='OUTRA'", "Categoria=NULL",
        "DataMatricula=NULL", "AnoMatricula=NULL", "AnoMatricula=2021", "AnoMatricula=2023",
        "DataPrxInsp='2024.04.01'", "KmActual=9500", "KmActual=9001", "KmActual=8400"})
    changes.push_back(kVehicle + change);
  for (const char* change : {"Matricula='SEM-VIAT'", "TipoSeguro='NADA'", "Inactiva=1", "Validade=NULL",
                             "Inactiva=1, Validade=NULL", "Inactiva=NULL"})
    changes.push_back(std::string("UPDATE zor_PV_Seguros SET ") + change);
  for (const char* change : {"DataVal=NULL", "DataVal='1899.12.30'", "Matricula='SEM-VIATUR'",
                             "Matricula='ONZE-LETRAS'", "TipoAcessorio='NADA'"})
    changes.push_back(std::string("UPDATE zor_PV_Acessorios SET ") + change);
  for (const char* date : {"Day", "NULL", "'1899.12.30'"})
    for (const char* change :
         {"BI='7', DataValBI=", "CartaoCid='8', ValCartaoCid=", "ValCartaCond=", "ValidadePassa=",
          "NoCartaoCondutor='9', DtDescarga=NULL, DtFimCartaoCondutor=",
          "NoCartaoCondutor='9', DtFimCartaoCondutor=NULL, DtDescarga="})
      changes.push_back(kNoPaper + kDriver + change + date);
  for (const char* date : {"NULL", "'1899.12.30'"})
    changes.push_back(std::string("UPDATE zor_CartasCond SET DataValidade=") + date);
  for (const char* tipo : {"10", "-1"})
    changes.push_back(std::string("UPDATE zor_CartasCond SET TipoCarta=") + tipo + " WHERE TipoCarta=9");
  for (const char* change : {"Inactivo=1", "Inactivo=NULL"}) changes.push_back(kDriver + change);
  const std::string other =
      "INSERT INTO zor_PV_Viaturas (Matricula, Marca, Categoria, DataMatricula, AnoMatricula, KmActual, "
      "KmPrxRev, Inactiva) VALUES ('B', 'REN', 'LIGM', '2022.03.20', 2022, 0, 9000, 0)";
  for (const char* change : {"WHERE Matricula='X'", "WHERE Matricula='A'", "WHERE Matricula='B'", ""})
    changes.push_back(other + "; " + kVehicle + "Categoria='OUTRA' " + change);
  changes.push_back(other + "; " + kVehicle + "Categoria='OUTRA', Inactiva=1 WHERE Matricula='A'");
  changes.push_back(
      "INSERT INTO zor_PV_Seguros (Matricula, TipoSeguro, Validade, Inactiva) VALUES ('C', 'DP', "
      "Day, 0); " +
      kVehicle + "Inactiva=1");
  changes.push_back("INSERT INTO zor_Funcionarios (Codigo, Nome) VALUES ('2', 'Rui')");
  for (const std::string& change : changes)
    for (const int days : {5, 100}) {
      NewFleet();
      DaysToGo(days);
      Change(change);
      text += "= " + change + ", em " + std::to_string(days) + "\n";
      for (const auto& [what, told] : Now())
        if (told != plain[days][what]) text += "  " + what + ": " + told + "\n";
    }
  ExpectWholeText(std::string(PARVEL_SOURCE_DIR) + "/tests/alerts/edges.txt", text);
}

}  // namespace
}  // namespace zorCrmParvel
