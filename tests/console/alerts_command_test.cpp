#include "console/alerts_command.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "console/program_fixture.h"
#include "exchange/calendar_file.h"
#include "support/files.h"
#include "support/fleet.h"
#include "support/recording_data_access.h"
#include "support/scripted_host.h"

namespace console {

using exchange::WriteCalendar;
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

/// Each entry: its name, date, summary and description.
std::vector<std::string> Entries(const std::string& file) {
  std::vector<std::string> entries;
  bool inAlarm = false;
  for (const std::string& line : ContentLines(file)) {
    if (line == "BEGIN:VEVENT") entries.emplace_back();
    inAlarm = line == "BEGIN:VALARM" || (inAlarm && line != "END:VALARM");
    if (inAlarm) continue;
    for (const std::string property : {"UID:", "DTSTART;VALUE=DATE:", "SUMMARY:", "DESCRIPTION:"})
      if (line.starts_with(property)) entries.back() += line.substr(property.size()) + "|";
  }
  return entries;
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

TEST_F(AlertsCommandTest, TellsWhetherSomethingIsDueAndWhat) {
  EXPECT_EQ(Alerts({}), kDone);
  EXPECT_EQ(out.str().find("Alertas - Viaturas: nada a tratar.\n\nAlertas - Apólices: nada"), 0U)
      << out.str();
  Fill();
  EXPECT_EQ(Alerts({}), kDue);
  EXPECT_NE(out.str().find("Alertas - Apólices: 1\nMatrícula"), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("Prazo Pagamento ultrapassado!"), std::string::npos);
  EXPECT_EQ(Alerts({.family = "motoristas"}), kDone);
  EXPECT_EQ(out.str(), "Alertas - Motoristas: nada a tratar.\n");

  EXPECT_EQ(Alerts({.json = true}), kDue);
  auto json = nlohmann::json::parse(out.str());
  EXPECT_EQ(json.size(), 6U);
  EXPECT_EQ(json["apolices"][0]["Data"], "2024-03-14");
  EXPECT_EQ(json["revisoes"].size(), 2U) << "by date and by kilometres";
  EXPECT_EQ(json["acessorios"], nlohmann::json::array());
  EXPECT_EQ(Alerts({.json = true, .family = "viaturas"}), kDue);
  EXPECT_EQ(nlohmann::json::parse(out.str()).size(), 1U);

  AddDriver(bd, "1", "Ana");
  Sql("UPDATE zor_Funcionarios SET Inactivo=NULL");
  EXPECT_EQ(Alerts({.json = true}), kFailed) << "a list that fails doesn't hide the others";
  EXPECT_EQ(err.str().find("Alertas - Motoristas: Falta um valor num dos registos lidos."), 0U) << err.str();
  EXPECT_NE(err.str().find("\nPormenores: Erro 94: Invalid use of Null; Origem: "), std::string::npos)
      << err.str();
  json = nlohmann::json::parse(out.str());
  EXPECT_TRUE(json["motoristas"].is_null());
  EXPECT_EQ(json["viaturas"].size(), 1U);
}

TEST_F(AlertsCommandTest, WritesOneCalendarEntryForEachDueDate) {
  Fill();
  Sql("INSERT INTO zor_PV_Seguros (Matricula, TipoSeguro, Apolice, Validade, Inactiva) VALUES ('12-AB-34', "
      "'DP', 'P2', '2024.04.14', 0)");
  Sql("UPDATE zor_PV_Viaturas SET Tacografo=1, DtDescarga='2024.03.18'");
  AddDriver(bd, "1", "Ana");
  Sql("UPDATE zor_Funcionarios SET BI='5', DataValBI='2024.03.25'");
  Sql("INSERT INTO zor_PV_TiposAcessorios (Codigo, Nome) VALUES ('EXT', 'Extintor')");
  Sql("INSERT INTO zor_PV_Acessorios (Matricula, TipoAcessorio, Marca, Data, DataVal) VALUES ('12-AB-34', "
      "'EXT', 'Sicur', '2023.01.01', '2024.03.30')");
  const std::string path = File("alertas.ics");
  EXPECT_EQ(Alerts({.json = true, .calendar = path}), kDue);
  const auto entries = Entries(Contents(path));
  EXPECT_EQ(
      entries,
      (std::vector<std::string>{
          "AlertasAcess-Dias-1-20240330@parvel|20240330|Acessório: EXT Sicur 12-AB-34|"
          "Acessório deve ser regularizado!|",
          "AlertasAp-Dias-12-AB-34-P2-20240414@parvel|20240414|Apólice: P2 12-AB-34|",
          "AlertasAp-Dias-12-AB-34-P\\;1-20240314@parvel|20240314|Apólice: P\\;1 12-AB-34|"
          "Prazo Pagamento ultrapassado!|",
          "AlertasInsp-Dias-12-AB-34-20240320@parvel|20240320|Inspecção: 12-AB-34|Faltam 5 dias para a "
          "inspecção!|",
          "AlertasMot-Dias-1-BI-20240325@parvel|20240325|Motorista: BI Ana|Documento deve ser regularizado!|",
          "AlertasRev-Dias-12-AB-34-20240320@parvel|20240320|Revisão: 12-AB-34 Renault|"
          "Faltam  200.00 Km para a revisão \\nRevisão marcada para  20-03-2024|",
          "AlertasViat-DiasSelo-12-AB-34-20240320@parvel|20240320|Selo: 12-AB-34 Renault|"
          "Pagamento do Selo deve ser efectuado durante o mês corrente|",
          "AlertasViat-DiasTac-12-AB-34-20240318@parvel|20240318|Descarga do tacógrafo: 12-AB-34 Renault|"
          "Data de Descarga do Tacógrafo deve ser actualizada|"}))
      << "a policy due in thirty days has no note";

  host.clock = host.clock.AddDays(3);
  Alerts({.calendar = path});
  const std::string later = Contents(path);
  for (const std::string& entry : entries)
    EXPECT_NE(later.find("UID:" + entry.substr(0, entry.find('|'))), std::string::npos) << entry;
}

TEST(CalendarFile, EscapesAndFoldsItsLines) {
  ScriptedHost host;
  const std::string text =
      "a,b;c\\d\ne\r\n" + std::string(80, 'x') + "ãããããããããããããããããããããããããããããããããããããã";
  const std::string file =
      WriteCalendar({{"u", platform::Date::FromParts(2024, 2, 29), "s", text}}, host.clock);
  EXPECT_EQ(Entries(file), (std::vector<std::string>{"u|20240229|s|a\\,b\\;c\\\\d\\ne\\n" +
                                                     text.substr(text.find('x')) + "|"}));
  std::istringstream in(file);
  for (std::string line; std::getline(in, line);)
    EXPECT_NE(static_cast<unsigned char>(line[line[0] == ' ' ? 1 : 0]) & 0xC0U, 0x80U) << "a split character";
}

TEST(CalendarFile, HoldsAllDayEntriesStampedInUniversalTime) {
  setenv("TZ", "WEST-1", 1);
  const std::string file = WriteCalendar({{"u", platform::Date::FromParts(2024, 12, 9), "s", "d"}, {}},
                                         platform::Date::FromParts(2024, 3, 15, 0, 20, 30));
  unsetenv("TZ");
  tzset();
  const auto end = [](const char* text) {
    return std::string("TRANSP:TRANSPARENT\r\nBEGIN:VALARM\r\nACTION:DISPLAY\r\nDESCRIPTION:") + text +
           "\r\nTRIGGER:-P6DT15H\r\nEND:VALARM\r\nEND:VEVENT\r\n";
  };
  EXPECT_EQ(file,
            "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Parvel//Alertas da frota//PT\r\n"
            "BEGIN:VEVENT\r\nUID:u\r\nDTSTAMP:20240314T232030Z\r\nDTSTART;VALUE=DATE:20241209\r\n"
            "SUMMARY:s\r\nDESCRIPTION:d\r\n" +
                end("s") +
                "BEGIN:VEVENT\r\nUID:\r\nDTSTAMP:20240314T232030Z\r\nDTSTART;VALUE=DATE:18991230\r\n"
                "SUMMARY:\r\n" +
                end("") + "END:VCALENDAR\r\n");
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
