#include "exchange/imports/stored_rows.h"

#include <algorithm>
#include <stdexcept>

#include "exchange/imports/row_mark.h"

namespace exchange {

using zorCrmParvel::fixed;
using zorCrmParvel::RecordsetRef;
using zorCrmParvel::value;

namespace {

const ImportKind& KindOfTable(const std::string& table) {
  const auto& kinds = ImportKinds();
  const auto found =
      std::find_if(kinds.begin(), kinds.end(), [&](const ImportKind& kind) { return table == kind.table; });
  if (found == kinds.end())
    throw std::runtime_error("Uma importação fala de uma tabela desconhecida: " + table);
  return *found;
}

}  // namespace

std::string NumberedKeyOf(const std::string& table) {
  const ImportKind& kind = KindOfTable(table);
  return kind.numbered ? kind.key : "";
}

zorCrmParvel::Statement RowByKey(const char* what, const std::string& table, const std::string& key) {
  const ImportKind& kind = KindOfTable(table);
  if (kind.numbered)
    return {what,
            " FROM ",
            fixed(kind.table),
            " WHERE ",
            fixed(kind.key),
            "=",
            value(std::int64_t{std::stoll(key)})};
  const auto bar = std::string_view(kind.name) == "cartas" ? key.rfind('|') : std::string::npos;
  zorCrmParvel::Statement statement{
      what, " FROM ", fixed(kind.table), " WHERE ", fixed(kind.key), "=N'", value(key.substr(0, bar)), "'"};
  if (bar != std::string::npos)
    statement << " and TipoCarta=" << value(std::int64_t{std::stoll(key.substr(bar + 1))});
  return statement;
}

StoredRows::StoredRows(zorCrmParvel::DataAccessRef bd, const ImportKind& kind)
    : bd_(std::move(bd)), kind_(kind) {
  if (!kind_.numbered) return;
  RecordsetRef rows;
  bd_->AbrirLeitura("", {"SELECT MAX(", fixed(kind_.key), ") AS Ultimo FROM ", fixed(kind_.table)}, rows);
  if (const platform::Variant last = rows->Fields("Ultimo").Value(); !last.IsNull()) last_ = last.ToLong();
  rows->Close();
}

void StoredRows::Begin() {
  if (!kind_.numbered) return;
  bd_->AbrirLeitura("",
                    {"SELECT * FROM ", fixed(kind_.table), " WHERE ", fixed(kind_.key), ">", value(last_),
                     " ORDER BY ", fixed(kind_.key)},
                    rows_);
}

/// On a server, others may have stored rows of their own among them.
bool StoredRows::Fits(const One& row) {
  const platform::Variant date = rows_->Fields(kind_.date).Value();
  return !date.IsNull() && date.ToDate() == row.date &&
         rows_->Fields(kind_.owner).Value().ToText() == row.key;
}

void StoredRows::Add(ImportLog& log, const One& row) {
  if (!kind_.numbered) return AddByKey(log, kind_.table, row.key, row.line);
  while (!rows_->Eof() && !Fits(row)) rows_->MoveNext();
  if (rows_->Eof())
    throw std::runtime_error("A linha " + std::to_string(row.line) +
                             " não ficou gravada: nada foi importado.");
  log.Add({.line = row.line,
           .table = kind_.table,
           .key = std::to_string(rows_->Fields(kind_.key).Value().ToLong()),
           .mark = MarkOf(*rows_, kind_.key),
           .transaction = row.transaction});
  rows_->MoveNext();
}

void StoredRows::AddByKey(ImportLog& log, const std::string& table, const std::string& key, long line) {
  RecordsetRef rows;
  bd_->AbrirLeitura("", RowByKey("SELECT *", table, key), rows);
  if (!rows->Eof())
    log.Add({.line = line, .table = table, .key = key, .mark = MarkOf(*rows, ""), .transaction = {}});
  rows->Close();
}

}  // namespace exchange
