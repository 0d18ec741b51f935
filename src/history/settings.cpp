#include "history/settings.h"

#include <charconv>
#include <string>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace history {
namespace {

using zorCrmParvel::fixed;
using zorCrmParvel::RecordsetRef;
using zorCrmParvel::Statement;

constexpr const char* kRecords = "historico";
constexpr const char* kNo = "nao";

/// The settings that are numbers of years.
struct Years {
  const char* name;
  int Settings::*years;
};
constexpr Years kYears[] = {{"historico.anos", &Settings::years},
                            {"historico.anos.documentos", &Settings::documentYears},
                            {"motoristas.anos", &Settings::driverYears}};

void Take(const std::string& name, const std::string& text, Settings& settings) {
  if (platform::EqualsIgnoringCase(name, kRecords)) settings.records = text != kNo;
  for (const Years& each : kYears) {
    int years = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), years);
    if (platform::EqualsIgnoringCase(name, each.name) && read.ec == std::errc{} && years >= 0)
      settings.*each.years = years;
  }
}

void Put(const zorCrmParvel::DataAccessRef& bd, const std::string& name, const std::string& text) {
  RecordsetRef row;
  bd->AbrirEdicao(Statement{"SELECT Nome, Valor FROM parvel_opcoes WHERE Nome = N'", fixed(name), "'"}, row);
  if (row->Eof()) row->AddNew();
  row->Fields("Nome").SetValue(name);
  row->Fields("Valor").SetValue(text);
  row->Update();
  row->Close();
}

}  // namespace

Settings ReadSettings(const zorCrmParvel::DataAccessRef& bd) {
  Settings settings;
  RecordsetRef rows;
  try {
    bd->AbrirLeitura("", "SELECT Nome, Valor FROM parvel_opcoes", rows);
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kInvalidObject) throw;
    return settings;
  }
  for (; !rows->Eof(); rows->MoveNext()) {
    const platform::Variant value = rows->Fields("Valor").Value();
    Take(rows->Fields("Nome").Value().ToText(), value.IsNull() ? std::string() : value.ToText(), settings);
  }
  rows->Close();
  return settings;
}

void WriteSettings(const zorCrmParvel::DataAccessRef& bd, const Settings& settings) {
  Put(bd, kRecords, settings.records ? "sim" : kNo);
  for (const Years& each : kYears) Put(bd, each.name, std::to_string(settings.*each.years));
}

}  // namespace history
