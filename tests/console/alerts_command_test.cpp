#include "console/alerts_command.h"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>

#include "console/calendar_file.h"
#include "console/program_fixture.h"
#include "support/files.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"
#include "support/scripted_host.h"

namespace console {
namespace {

using namespace testing_support;

/// The content lines, unfolded; every line must end in CR LF and fit.
std::vector<std::string> ContentLines(const std::string& file) {
  std::vector<std::string> lines;
  std::istringstream in(file);
  for (std::string line; std::getline(in, line);) {
    EXPECT_TRUE(!line.empty() && line.back() == '\r');
    line.pop_back();
    EXPECT_LE(line.size(), 75U) << line;
    if (!line.empty() && line[0] == ' ')
      lines.back() += line.substr(1);
    else
      lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> Values(const std::string& file, const std::string& property) {
  std::vector<std::string> values;
  for (const std::string& line : ContentLines(file))
    if (line.rfind(property + ":", 0) == 0) values.push_back(line.substr(property.size() + 1));
  return values;
}

class AlertsCommandTest : public ProgramFixture {
 protected:
  void Sql(const std::string& statement) { bd->ExecutarSql("", statement.c_str()); }
  /// A vehicle whose road tax, revision and inspection are due in five days, and a policy past by one.
  void Fill() {
    AddVehicle(bd, "12-AB-34");
    Sql("UPDATE zor_PV_Viaturas SET Categoria='LIGM', DataMatricula='2022.03.20', AnoMatricula=2022, "
        "KmActual=1000, KmPrxRev=1200, DataPrxRev='2024.03.20', DataSelo='2024.03.20', SeloPago=0");
    Sql("INSERT INTO zor_PV_TiposSeguro (Codigo, Nome) VALUES ('DP', 'Danos, próprios')");
    Sql("INSERT INTO zor_PV_Seguros (Matricula, TipoSeguro, Apolice, Validade, Inactiva) VALUES ('12-AB-34', "
        "'DP', 'P;1', '2024.03.14', 0)");
  }
  int Alerts(const AlertsOptions& options) {
    out.str("");
    err.str("");
    return PrintAlerts(bd, options, out, err);
  }

  ScriptedHost host;
  zorCrmParvel::DataAccessRef bd = MemoryDatabase();
};

TEST_F(AlertsCommandTest, TellsByItsExitCodeWhetherSomethingIsDue) {
  EXPECT_EQ(Alerts({}), kDone);
  EXPECT_EQ(out.str().find("Alertas - Viaturas: nada a tratar.\n\nAlertas - Apólices: nada"), 0U)
      << out.str();
  Fill();
  EXPECT_EQ(Alerts({}), kDue);
  EXPECT_NE(out.str().find("Alertas - Apólices: 1\nMatrícula"), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("Prazo Pagamento ultrapassado!"), std::string::npos);
  EXPECT_EQ(Alerts({.family = "motoristas"}), kDone);
  EXPECT_EQ(out.str(), "Alertas - Motoristas: nada a tratar.\n");
}

TEST_F(AlertsCommandTest, GivesOneJsonObjectForAllFamilies) {
  Fill();
  EXPECT_EQ(Alerts({.json = true}), kDue);
  const auto json = nlohmann::json::parse(out.str());
  EXPECT_EQ(json.size(), 6U);
  EXPECT_EQ(json["apolices"][0]["Data"], "2024-03-14");
  EXPECT_EQ(json["revisoes"].size(), 2U) << "by date and by kilometres";
  EXPECT_EQ(json["acessorios"], nlohmann::json::array());
  EXPECT_EQ(Alerts({.json = true, .family = "viaturas"}), kDue);
  EXPECT_EQ(nlohmann::json::parse(out.str()).size(), 1U);
}

TEST_F(AlertsCommandTest, AListThatFailsDoesntHideTheOthers) {
  Fill();
  AddDriver(bd, "1", "Ana");
  Sql("UPDATE zor_Funcionarios SET Inactivo=NULL");
  EXPECT_EQ(Alerts({.json = true}), kFailed);
  EXPECT_EQ(err.str().find("Alertas - Motoristas: Falta um valor num dos registos lidos."), 0U) << err.str();
  EXPECT_NE(err.str().find("\nPormenores: Erro 94: Invalid use of Null; Origem: "), std::string::npos)
      << err.str();
  const auto json = nlohmann::json::parse(out.str());
  EXPECT_TRUE(json["motoristas"].is_null());
  EXPECT_EQ(json["viaturas"].size(), 1U);
}

TEST_F(AlertsCommandTest, WritesOneCalendarEntryForEachDueDate) {
  Fill();
  const std::string path = File("alertas.ics");
  EXPECT_EQ(Alerts({.json = true, .calendar = path}), kDue);
  const std::string file = Contents(path);
  const auto uids = Values(file, "UID");
  EXPECT_EQ(uids.size(), 4U) << "road tax, policy, inspection, and the revision once";
  EXPECT_EQ(std::set<std::string>(uids.begin(), uids.end()).size(), uids.size());
  EXPECT_EQ(Values(file, "DTSTART;VALUE=DATE"),
            (std::vector<std::string>{"20240314", "20240320", "20240320", "20240320"}));
  EXPECT_EQ(Values(file, "SUMMARY")[0], "Apólice: P\\;1 12-AB-34");
  EXPECT_EQ(Values(file, "BEGIN"),
            (std::vector<std::string>{"VCALENDAR", "VEVENT", "VEVENT", "VEVENT", "VEVENT"}));

  host.clock = host.clock.AddDays(3);
  Alerts({.calendar = path});
  EXPECT_EQ(Values(Contents(path), "UID"), uids) << "the same entries on another day";
  EXPECT_EQ(Values(Contents(path), "DTSTART;VALUE=DATE")[1], "20240320");
}

TEST(CalendarFile, EscapesAndFoldsItsLines) {
  ScriptedHost host;
  const std::string text =
      "a,b;c\\d\ne\r\n" + std::string(80, 'x') + "ãããããããããããããããããããããããããããããããããããããã";
  const std::string file =
      WriteCalendar({{"u", platform::Date::FromParts(2024, 2, 29), "s", text}}, host.clock);
  EXPECT_EQ(Values(file, "DESCRIPTION"),
            (std::vector<std::string>{"a\\,b\\;c\\\\d\\ne\\n" + std::string(80, 'x') +
                                      "ãããããããããããããããããããããããããããããããããããããã"}));
  std::istringstream in(file);
  for (std::string line; std::getline(in, line);)
    EXPECT_NE(static_cast<unsigned char>(line[line[0] == ' ' ? 1 : 0]) & 0xC0U, 0x80U) << "a split character";
  const std::string stamp = Values(file, "DTSTAMP").at(0);
  EXPECT_EQ(stamp.size(), 16U);
  EXPECT_EQ(stamp.back(), 'Z');
}

TEST_F(AlertsCommandTest, TheProgramTakesItsCommands) {
  EXPECT_EQ(OnDatabase({"alertas", "--familia", "nada"}), kUsage);
  EXPECT_FALSE(std::filesystem::exists(database));
  EXPECT_EQ(OnDatabase({"alertas"}), kDone);
  EXPECT_EQ(OnDatabase({"alertas", "--ics", File("não/há.ics")}), kFailed);

  EXPECT_EQ(OnDatabase({"anexos", "5"}), kUsage);
  EXPECT_EQ(OnDatabase({"anexos", "5", "12-AB-34"}), kDone);
  EXPECT_EQ(out.str(), "Sem ficheiros anexados.\n");
  EXPECT_EQ(OnDatabase({"anexos", "5", "12-AB-34", "--juntar", File("x/../a.pdf")}), kDone);
  EXPECT_EQ(out.str(), File("a.pdf") + "\n");
  EXPECT_EQ(OnDatabase({"anexos", "6", "12-AB-34"}), kDone);
  EXPECT_EQ(out.str(), "Sem ficheiros anexados.\n");
}

}  // namespace
}  // namespace console
