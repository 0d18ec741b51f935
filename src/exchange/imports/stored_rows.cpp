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

StoredRows::StoredRows(const zorCrmParvel::DataAccessRef& bd, const ImportKind& kind, ImportLog& log)
    : bd_(bd), kind_(kind), log_(log), through_(bd) {
  if (!kind_.numbered) return;
  collector_ = std::make_shared<RowCollector>(
      bd, kind_.table, kind_.key,
      [this](std::int32_t number, std::string mark) { Sent(number, std::move(mark)); });
  through_ = collector_;
}

void StoredRows::Add(const std::string& key, long line, const std::string& transaction) {
  if (kind_.numbered)
    waiting_.push_back({line, transaction});
  else
    AddByKey(kind_.table, key, line);
}

void StoredRows::Sent(std::int32_t number, std::string mark) {
  const Waiting row = std::move(waiting_.front());
  waiting_.pop_front();
  log_.Add({.line = row.line,
            .table = kind_.table,
            .key = std::to_string(number),
            .mark = std::move(mark),
            .transaction = row.transaction});
}

void StoredRows::Finish() {
  if (collector_ != nullptr) collector_->Flush();
  if (!waiting_.empty())
    throw std::runtime_error("A linha " + std::to_string(waiting_.front().line) +
                             " não ficou gravada: nada foi importado.");
}

void StoredRows::AddByKey(const std::string& table, const std::string& key, long line) {
  RecordsetRef rows;
  bd_->AbrirLeitura("", RowByKey("SELECT *", table, key), rows);
  if (!rows->Eof())
    log_.Add({.line = line, .table = table, .key = key, .mark = MarkOf(*rows, ""), .transaction = {}});
  rows->Close();
}

}  // namespace exchange
