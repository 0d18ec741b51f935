#include "exchange/imports/import_log.h"

#include <algorithm>

#include "host/row.h"
#include "platform/host.h"
#include "platform/text.h"

namespace exchange {

using zorCrmParvel::DataAccessRef;
using zorCrmParvel::RecordsetRef;
using zorCrmParvel::Row;
using zorCrmParvel::value;

ImportLog::ImportLog(DataAccessRef bd, const ImportEntry& entry)
    : bd_(std::move(bd)),
      held_{.table = "parvel_importacoes_linhas",
            .number = {},
            .columns = {"Importacao", "Ordem", "Linha", "Tabela", "Chave", "Marca", "Transaccao"},
            .rows = {}} {
  RecordsetRef rows;
  bd_->AbrirEdicao("SELECT * FROM parvel_importacoes WHERE Numero=0", rows);
  rows->AddNew();
  Row row(*rows);
  row.put("Momento", entry.when);
  row.cut("Quem", entry.who);
  row.cut("Tipo", entry.kind);
  row.cut("Ficheiro", entry.file);
  row.cut("Perfil", entry.profile);
  row.cut("Soma", entry.checksum);
  rows->Update();
  rows->Close();
  bd_->AbrirLeitura("", "SELECT MAX(Numero) AS Ultimo FROM parvel_importacoes", rows);
  number_ = rows->Fields("Ultimo").Value().ToLong();
  rows->Close();
}

void ImportLog::Add(ImportedRow stored) {
  constexpr std::size_t kMostHeld = 1000;
  constexpr std::size_t kLongest = 60;  // characters of a sender's number
  using platform::Variant;
  if (held_.rows.size() == kMostHeld) Flush();
  ++rows_;
  const bool numbered = !stored.transaction.empty();
  held_.rows.push_back(
      {static_cast<std::int32_t>(number_), static_cast<std::int32_t>(rows_),
       static_cast<std::int32_t>(stored.line), std::move(stored.table), std::move(stored.key),
       std::move(stored.mark),
       numbered ? Variant(platform::Left(stored.transaction, kLongest)) : Variant(Variant::Null{})});
}

void ImportLog::Flush() {
  AddRows(bd_, held_);
  held_.rows.clear();
}

void ImportLog::Finish() {
  Flush();
  bd_->ExecutarSql("", {"UPDATE parvel_importacoes SET Linhas=", value(std::int64_t{rows_}),
                        " WHERE Numero=", value(std::int64_t{number_})});
}

std::vector<ImportEntry> ListImports(const DataAccessRef& bd) {
  RecordsetRef rows;
  bd->AbrirLeitura("", "SELECT * FROM parvel_importacoes ORDER BY Numero DESC", rows);
  std::vector<ImportEntry> entries;
  for (; !rows->Eof(); rows->MoveNext()) {
    const Row row(*rows);
    ImportEntry entry{.number = row.number("Numero"),
                      .when = row.dateOrZero("Momento"),
                      .who = row.textOrEmpty("Quem"),
                      .kind = row.textOrEmpty("Tipo"),
                      .file = row.textOrEmpty("Ficheiro"),
                      .profile = row.textOrEmpty("Perfil"),
                      .checksum = row.textOrEmpty("Soma"),
                      .rows = row.number("Linhas"),
                      .takenBack = {}};
    if (!row.value("Anulada").IsNull()) entry.takenBack = row.date("Anulada");
    entries.push_back(std::move(entry));
  }
  rows->Close();
  return entries;
}

std::optional<ImportEntry> ImportedBefore(const DataAccessRef& bd, const std::string& checksum) {
  const auto entries = ListImports(bd);
  const auto found = std::find_if(entries.begin(), entries.end(), [&](const ImportEntry& entry) {
    return entry.checksum == checksum && !entry.takenBack;
  });
  return found == entries.end() ? std::nullopt : std::optional(*found);
}

std::unordered_set<std::string> KnownTransactions(const DataAccessRef& bd, const std::string& profile) {
  RecordsetRef rows;
  bd->AbrirLeitura("",
                   {"SELECT L.Transaccao FROM parvel_importacoes_linhas L INNER JOIN parvel_importacoes I ON "
                    "I.Numero=L.Importacao WHERE I.Perfil=N'",
                    value(profile), "' and L.Transaccao>''"},
                   rows);
  std::unordered_set<std::string> known;
  const auto number = rows->Fields("Transaccao");
  for (; !rows->Eof(); rows->MoveNext()) known.insert(number.Value().ToText());
  rows->Close();
  return known;
}

}  // namespace exchange
