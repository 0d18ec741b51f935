// What lists, counts, checks and feed tell of a fleet, on every edge of the bands and for every column that
// may be otherwise, held against a text.
#include <map>
#include <sstream>

#include "alerts/alert_list.h"
#include "alerts/alert_rules.h"
#include "alerts/alerts_fixture.h"
#include "host/sistema.h"
#include "support/files.h"
#include "support/grid_window.h"
#include "support/state_text.h"
#include "support/whole_text.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

const std::string kVehicle = "UPDATE zor_PV_Viaturas SET ";
const std::string kDriver = "UPDATE zor_Funcionarios SET ";
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
    std::string error = ErrorOf([&] { window.Start(*list); });
    if (!error.empty()) return error;
    ContagemDeAlertas shown{window.grid.RowCount(), 0, 0, 0};
    for (long row = 0; row < shown.linhas; ++row) {
      const platform::FormatCondition* condition = window.grid.ConditionOf(row);
      const Tools::Faixa faixa = condition == nullptr ? Tools::Faixa::kNenhuma : FaixaDe(*condition);
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

/// The headings of the text say what is changed and how many days there are to the day on which all is due.
/// Beside a change stands what it makes otherwise.
TEST_F(AlertEdgesTest, AreAsWrittenDown) {
  const std::string file = PARVEL_SOURCE_DIR "/tests/alerts/edges.txt";
  std::istringstream written(Contents(file));
  std::map<int, Told> plain;
  std::string text;
  for (std::string line; std::getline(written, line);) {
    if (!line.starts_with("= ")) continue;
    const std::size_t mark = line.rfind("em ");
    const int days = std::stoi(line.substr(mark + 3));
    NewFleet();
    DaysToGo(days);
    if (mark > 2) Change(line.substr(2, mark - 4));
    const Told now = Now();
    text += line + "\n";
    for (const auto& [what, told] : now)
      if (mark == 2 || told != plain[days][what])
        text.append("  ").append(what).append(": ").append(told).append("\n");
    if (mark == 2) plain[days] = now;
  }
  EXPECT_FALSE(text.empty());
  ExpectWholeText(file, text);
}

}  // namespace
}  // namespace zorCrmParvel
