#include "due/handled.h"

#include "host/literal.h"
#include "platform/format.h"
#include "platform/host.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace due {
namespace {

using platform::Date;
using zorCrmParvel::DataAccessRef;
using zorCrmParvel::InsideLiteral;
using zorCrmParvel::Statement;
using zorCrmParvel::value;

constexpr std::size_t kNoteLimit = 200;

Statement Of(const char* begin, const std::string& list, const std::string& alert) {
  return Statement{begin,
                   " WHERE Lista = N'",
                   value(InsideLiteral(list)),
                   "' AND Registo = N'",
                   value(InsideLiteral(alert)),
                   "'"};
}

std::string TextOf(const zorCrmParvel::RecordsetRef& rows, const char* field) {
  const platform::Variant read = rows->Fields(field).Value();
  return read.IsNull() ? std::string() : read.ToText();
}

}  // namespace

std::string Handling::Words() const {
  const std::string words =
      until ? "Adiado até " + platform::FormatDate(*until, "dd-mm-yyyy") : std::string("Tratado");
  return note.empty() ? words : words + ": " + note;
}

const std::vector<const char*>& AlertColumns(const std::string& list) {
  static const std::map<std::string, std::vector<const char*>> columns = {
      {"AlertasAp", {"Matricula", "Apolice", "Data"}},
      {"AlertasRev", {"Matricula", "KmPrxRev", "DataPrxRev"}},
      {"AlertasInsp", {"Matricula", "DataPrx"}},
      {"AlertasAcess", {"Id", "Data"}},
      {"AlertasMot", {"Codigo", "Documento", "Data"}},
      {"AlertasViat", {"Matricula", "Notas", "Data"}},
  };
  static const std::vector<const char*> none;
  const auto found = columns.find(list);
  return found == columns.end() ? none : found->second;
}

std::string AlertOf(const std::vector<std::string>& texts) {
  constexpr std::size_t kWidth = 120;
  std::string alert;
  for (const std::string& text : texts) alert += (alert.empty() ? "" : "|") + text;
  return platform::Left(alert, kWidth);
}

Handlings HandlingsOf(const DataAccessRef& bd, const std::string& list, Date today) {
  Handlings handlings;
  zorCrmParvel::RecordsetRef rows;
  try {
    bd->AbrirLeitura(
        "",
        Statement{"SELECT Registo, Ate, Nota, Quem, Quando FROM parvel_tratados WHERE Lista = N'",
                  value(InsideLiteral(list)), "'"},
        rows);
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kInvalidObject) throw;
    return handlings;
  }
  for (; !rows->Eof(); rows->MoveNext()) {
    Handling handling;
    const platform::Variant until = rows->Fields("Ate").Value();
    if (!until.IsNull()) handling.until = until.ToDate();
    if (handling.until && *handling.until <= today) continue;
    handling.note = TextOf(rows, "Nota");
    handling.who = TextOf(rows, "Quem");
    const platform::Variant when = rows->Fields("Quando").Value();
    if (!when.IsNull()) handling.when = when.ToDate();
    handlings.emplace(TextOf(rows, "Registo"), std::move(handling));
  }
  return handlings;
}

void Handle(const DataAccessRef& bd, const std::string& list, const std::string& alert,
            const Handling& handling) {
  if (platform::Length(handling.note) > kNoteLimit)
    throw platform::RuntimeError(platform::kInvalidCall, "Alertas",
                                 "A nota tem mais de 200 caracteres. Encurte-a.");
  if (handling.until && *handling.until <= platform::Today())
    throw platform::RuntimeError(platform::kInvalidCall, "Alertas", "Escolha um dia depois de hoje.");
  zorCrmParvel::RecordsetRef rows;
  bd->AbrirEdicao(Of("SELECT * FROM parvel_tratados", list, alert), rows);
  if (rows->Eof()) {
    rows->AddNew();
    rows->Fields("Lista").SetValue(list);
    rows->Fields("Registo").SetValue(alert);
  }
  rows->Fields("Ate").SetValue(handling.until ? platform::Variant(*handling.until)
                                              : platform::Variant(platform::Variant::Null{}));
  rows->Fields("Nota").SetValue(handling.note);
  rows->Fields("Quem").SetValue(handling.who);
  rows->Fields("Quando").SetValue(handling.when);
  rows->Update();
  rows->Close();
}

void Reopen(const DataAccessRef& bd, const std::string& list, const std::string& alert) {
  bd->ExecutarSql("", Of("DELETE FROM parvel_tratados", list, alert));
}

}  // namespace due
