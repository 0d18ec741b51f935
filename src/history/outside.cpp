#include "history/outside.h"

#include <map>

#include "history/rows.h"
#include "platform/runtime_error.h"

namespace history {
namespace {

std::map<std::string, OutsideUndoing>& Undoings() {
  static std::map<std::string, OutsideUndoing> undoings;
  return undoings;
}

}  // namespace

void SetUndoing(const std::string& table, OutsideUndoing undoing) { Undoings()[table] = std::move(undoing); }

void NoteIn(const zorCrmParvel::Store& database, const std::string& words, const std::string& table,
            const std::string& key) {
  for (KeepingStore* store : OpenStores())
    if (store->StandsBefore(database)) store->Note(words, table, key);
}

void NoteUndoneIn(const zorCrmParvel::Store& database, const std::string& words, const std::string& table,
                  const std::string& key) {
  for (KeepingStore* store : OpenStores())
    if (store->StandsBefore(database)) store->NoteUndone(words, table, key);
}

std::optional<Noted> NotedBy(KeepingStore& store, long operation) {
  const auto rows = OpenRows(store,
                             "SELECT Tabela, Chave FROM parvel_historico WHERE Linhas = 0 AND Tabela IS NOT "
                             "NULL AND Id = " +
                                 std::to_string(operation));
  if (rows->Eof()) return {};
  return Noted{TextIn(*rows, "Tabela"), TextIn(*rows, "Chave")};
}

long OperationThatNoted(KeepingStore& store, const std::string& table, const std::string& key) {
  const auto rows =
      OpenRows(store, "SELECT TOP 1 Id FROM parvel_historico WHERE Chave = " + TextLiteral(key) +
                          " AND Tabela = " + TextLiteral(table) +
                          " AND Linhas = 0 AND Anula IS NULL ORDER BY Id DESC");
  return rows->Eof() ? 0 : NumberIn(*rows, "Id");
}

std::vector<std::string> UndoNoted(KeepingStore& store, const Noted& noted) {
  const auto found = Undoings().find(noted.table);
  if (found == Undoings().end())
    throw platform::RuntimeError(platform::kInvalidCall, "Histórico",
                                 "Aqui esta operação não se pode anular.");
  return found->second(store.inner(), noted.key,
                       [&](const std::string& words) { store.NoteUndone(words, noted.table, noted.key); });
}

}  // namespace history
